#pragma once

#include <jni.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "engine/swig/HandleRegistry.h"
#include "engine/swig/KVXEGuiInterface.h"

/// What every native method needs: arguments checked and turned into the engine's types, results turned into
/// Java's, and exceptions carried over. A native method is then one line: `call` with a member function.
namespace kvxe::jni {

/// The Java exceptions for wrong arguments, by their codes.
enum class ErrorCode : int {
  OUT_OF_MEMORY = 1,
  IO,
  RUNTIME,
  INDEX_OUT_OF_BOUNDS,
  ARITHMETIC,
  ILLEGAL_ARGUMENT,
  NULL_POINTER,
  SYSTEM,
  UNKNOWN,
};

/// An argument that the engine never gets to see.
struct ArgumentError {
  ErrorCode code;
  std::string text;
};

/// A call into Java failed, and its exception waits for our return.
struct JavaExceptionPending {};

/// Turns the C++ exception that is being handled into a Java exception, unless one is pending already. To be
/// called in a catch clause.
void raiseInJava(JNIEnv* env) noexcept;

/// Runs a native method's body. Nothing thrown gets past; the result is 0, false or null then.
template <class Body>
auto guarded(JNIEnv* env, Body body) -> decltype(body()) {
  try {
    return body();
  } catch (...) {
    raiseInJava(env);
    return decltype(body())();
  }
}

// Objects by their handles.

/// What the messages of a kind of handle say.
template <class T>
struct HandleTexts;
template <>
struct HandleTexts<KVXEGuiInterface> {
  static constexpr const char* null = "null KVXEGuiInterface";
  static constexpr const char* stale = "KVXEGuiInterface does not exist";
};
template <>
struct HandleTexts<KVXEGuiInterface::StringVector> {
  static constexpr const char* null = "KVXEGuiInterface::StringVector & reference is null";
  static constexpr const char* stale = "KVXEGuiInterface::StringVector does not exist";
};
template <>
struct HandleTexts<KVXEGuiInterface::IntVector> {
  static constexpr const char* null = "KVXEGuiInterface::IntVector & reference is null";
  static constexpr const char* stale = "KVXEGuiInterface::IntVector does not exist";
};

template <class T>
std::shared_ptr<T> checked(jlong handle, std::shared_ptr<T> object) {
  if (handle == 0) throw ArgumentError{ErrorCode::NULL_POINTER, HandleTexts<T>::null};
  if (!object) throw ArgumentError{ErrorCode::ILLEGAL_ARGUMENT, HandleTexts<T>::stale};
  return object;
}

template <class T>
std::shared_ptr<T> find(jlong handle) {
  return checked(handle, HandleRegistry<T>::getGlobal().find(handle));
}

template <class T>
jlong create(JNIEnv* env) {
  return guarded(env, [] { return jlong{HandleRegistry<T>::getGlobal().add(std::make_shared<T>())}; });
}

template <class T>
void destroy(JNIEnv* env, jlong handle) {
  guarded(env, [&] { checked(handle, HandleRegistry<T>::getGlobal().remove(handle)); });
}

// Texts.

std::string toNarrow(JNIEnv* env, jstring text);
jstring toJava(JNIEnv* env, const std::string& text);

/// A Java byte array and how much of it counts.
struct Bytes {
  jbyteArray array;
  jint length;
};

// An argument as the engine takes it, by the engine's type. It lives as long as the call.

template <class T>
class Argument {  // numbers and flags
 public:
  template <class Java>
  Argument(JNIEnv*, Java value) : m_value(static_cast<T>(value)) {}
  operator T() const { return m_value; }

 private:
  T m_value;
};

template <>
class Argument<const std::string&> {
 public:
  Argument(JNIEnv* env, jstring text) : m_text(toNarrow(env, text)) {}
  operator const std::string&() const { return m_text; }

 private:
  std::string m_text;
};

template <class T>
class Argument<std::vector<T>&> {
 public:
  Argument(JNIEnv*, jlong handle) : m_vector(find<std::vector<T>>(handle)) {}
  operator std::vector<T>&() const { return *m_vector; }

 private:
  std::shared_ptr<std::vector<T>> m_vector;
};

/// A copy of a byte array, which is copied back in the end whatever became of it.
template <>
class Argument<unsigned char*> {
 public:
  Argument(JNIEnv* env, Bytes bytes);
  ~Argument();
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;
  operator unsigned char*() const { return m_copy.get(); }

 private:
  JNIEnv* m_env;
  Bytes m_bytes;
  std::unique_ptr<unsigned char[]> m_copy;
};

// Results.

inline jboolean toJava(JNIEnv*, bool value) {
  return value ? JNI_TRUE : JNI_FALSE;
}
inline jint toJava(JNIEnv*, int value) {
  return value;
}
inline jint toJava(JNIEnv*, unsigned int value) {
  return static_cast<jint>(value);
}

// Calls. The types of the arguments and of the result follow from the function that is called.

template <class... Parameters, class Function, class... Java>
auto invoke(JNIEnv* env, Function function, Java... arguments) {
  static_assert(sizeof...(Parameters) == sizeof...(Java));
  if constexpr (std::is_void_v<decltype(function(Argument<Parameters>(env, arguments)...))>)
    function(Argument<Parameters>(env, arguments)...);
  else
    return toJava(env, function(Argument<Parameters>(env, arguments)...));
}

/// Calls a member function of the object of the handle.
template <class Result, class... Parameters, class... Java>
auto call(JNIEnv* env, jlong self, Result (KVXEGuiInterface::*method)(Parameters...), Java... arguments) {
  return guarded(env, [&] {
    const auto object = find<KVXEGuiInterface>(self);
    const auto bound = [&](Parameters... values) -> Result { return (*object.*method)(values...); };
    return invoke<Parameters...>(env, bound, arguments...);
  });
}

/// Calls a function without an object.
template <class Result, class... Parameters, class... Java>
auto call(JNIEnv* env, Result (*function)(Parameters...), Java... arguments) {
  return guarded(env, [&] { return invoke<Parameters...>(env, function, arguments...); });
}

}  // namespace kvxe::jni

/// The head of the native method of a name in the front end's class: `KVX_NATIVE(jint,
/// IntVector_1size)(...)`.
#define KVX_NATIVE(result, name) extern "C" JNIEXPORT result JNICALL Java_ui_data_kvx_kvxi_##name

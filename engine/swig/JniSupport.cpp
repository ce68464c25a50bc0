#include "engine/swig/JniSupport.h"

#include <iterator>
#include <new>

#include "platform/wyr_common/NException.h"
#include "platform/wyr_common/NLocale.h"

namespace kvxe::jni {

namespace {

constexpr const char* CommandFailed = "ui/frmwork/cmd/CommandFailedException";
constexpr const char* OutOfMemory = "ui/frmwork/COutOfMemoryException";

/// By code, from 1.
constexpr const char* ArgumentErrorClasses[] = {
    "java/lang/OutOfMemoryError",     "java/io/IOException",
    "java/lang/RuntimeException",     "java/lang/IndexOutOfBoundsException",
    "java/lang/ArithmeticException",  "java/lang/IllegalArgumentException",
    "java/lang/NullPointerException", "java/lang/RuntimeException",
    "java/lang/UnknownError",
};

const char* classOf(ErrorCode code) {
  const int index = static_cast<int>(code) - 1;
  const bool isKnown = index >= 0 && index < static_cast<int>(std::size(ArgumentErrorClasses));
  return isKnown ? ArgumentErrorClasses[index] : "java/lang/UnknownError";
}

/// A call into Java that fails leaves an exception of its own, which is then the one that the caller gets.
void raise(JNIEnv* env, const char* className, const std::string& text) {
  if (env->ExceptionCheck()) return;
  const jclass type = env->FindClass(className);
  if (!type) return;
  const jmethodID constructor = env->GetMethodID(type, "<init>", "(Ljava/lang/String;)V");
  if (!constructor) return;
  const jstring message = toJava(env, text);
  if (jobject exception = env->NewObject(type, constructor, message))
    env->Throw(static_cast<jthrowable>(exception));
}

std::string messageOf(const NException& exception) {
  const BulletinMgr* bulletins = exception.getBulletinMgr();
  return bulletins ? bulletins->getMessage() : std::string();
}

void raiseCurrent(JNIEnv* env) {
  try {
    throw;
  } catch (const JavaExceptionPending&) {
  } catch (const ArgumentError& error) {
    raise(env, classOf(error.code), error.text);
  } catch (const NException& exception) {
    raise(env, CommandFailed, messageOf(exception));
  } catch (const std::bad_alloc&) {
    raise(env, OutOfMemory, "Out of memory");
  } catch (const std::exception& exception) {
    raise(env, CommandFailed, exception.what());
  } catch (...) {
    raise(env, CommandFailed, "Unknown exception occurred");
  }
}

}  // namespace

void raiseInJava(JNIEnv* env) noexcept {
  try {
    raiseCurrent(env);
  } catch (const JavaExceptionPending&) {
  } catch (...) {  // not even the text could be made
    if (env->ExceptionCheck()) return;
    if (const jclass type = env->FindClass(OutOfMemory)) env->ThrowNew(type, "Out of memory");
  }
}

std::string toNarrow(JNIEnv* env, jstring text) {
  if (!text) throw ArgumentError{ErrorCode::NULL_POINTER, "null std::string"};
  const auto release = [&](const jchar* units) { env->ReleaseStringChars(text, units); };
  const std::unique_ptr<const jchar, decltype(release)> units(env->GetStringChars(text, nullptr), release);
  if (!units) throw JavaExceptionPending{};
  return NLocale::convert(std::wstring(units.get(), units.get() + env->GetStringLength(text)));
}

jstring toJava(JNIEnv* env, const std::string& text) {
  const std::wstring wide = NLocale::convert(text);
  std::vector<jchar> units(wide.begin(), wide.end());
  units.push_back(0);  // so that an empty text has units to point at
  const jstring result = env->NewString(units.data(), static_cast<jsize>(wide.size()));
  if (!result) throw JavaExceptionPending{};
  return result;
}

Argument<unsigned char*>::Argument(JNIEnv* env, Bytes bytes) : m_env(env), m_bytes(bytes) {
  if (!bytes.array) throw ArgumentError{ErrorCode::NULL_POINTER, "null array"};
  const jsize available = env->GetArrayLength(bytes.array);
  if (bytes.length < 0 || bytes.length > available)
    throw ArgumentError{
        ErrorCode::INDEX_OUT_OF_BOUNDS,
        "length " + std::to_string(bytes.length) + " of an array of " + std::to_string(available) + " bytes"};
  m_copy.reset(new (std::nothrow) unsigned char[static_cast<std::size_t>(bytes.length)]);
  if (!m_copy) throw ArgumentError{ErrorCode::OUT_OF_MEMORY, "array memory allocation failed"};
  env->GetByteArrayRegion(bytes.array, 0, bytes.length, reinterpret_cast<jbyte*>(m_copy.get()));
}

Argument<unsigned char*>::~Argument() {
  if (m_env->ExceptionCheck()) return;
  m_env->SetByteArrayRegion(m_bytes.array, 0, m_bytes.length, reinterpret_cast<const jbyte*>(m_copy.get()));
}

}  // namespace kvxe::jni

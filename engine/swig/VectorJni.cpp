#include "engine/swig/JniSupport.h"

// The native methods of the vectors that the front end fills and reads: the same for each type of element.

namespace {

using kvxe::jni::ArgumentError;
using kvxe::jni::call;
using kvxe::jni::ErrorCode;

template <class T>
int sizeOf(std::vector<T>& vector) {
  return static_cast<int>(vector.size());
}

template <class T>
bool isEmpty(std::vector<T>& vector) {
  return vector.empty();
}

template <class T>
T& at(std::vector<T>& vector, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= vector.size())
    throw ArgumentError{
        ErrorCode::INDEX_OUT_OF_BOUNDS,
        "index " + std::to_string(index) + " of a vector of " + std::to_string(vector.size()) + " elements"};
  return vector[static_cast<std::size_t>(index)];
}

template <class T>
T get(std::vector<T>& vector, int index) {
  return at(vector, index);
}

/// As arguments texts travel by reference and numbers by value.
template <class T>
using In = std::conditional_t<std::is_class_v<T>, const T&, T>;

template <class T>
void set(std::vector<T>& vector, int index, In<T> value) {
  at(vector, index) = value;
}

template <class T>
void add(std::vector<T>& vector, In<T> value) {
  vector.push_back(value);
}

template <class T>
void clear(std::vector<T>& vector) {
  vector.clear();
}

}  // namespace

#define KVX_VECTOR_NATIVES(Vector, Element, JavaElement)                                             \
  KVX_NATIVE(jlong, new_1##Vector)(JNIEnv * env, jclass) {                                           \
    return kvxe::jni::create<std::vector<Element>>(env);                                             \
  }                                                                                                  \
  KVX_NATIVE(void, delete_1##Vector)(JNIEnv * env, jclass, jlong self) {                             \
    kvxe::jni::destroy<std::vector<Element>>(env, self);                                             \
  }                                                                                                  \
  KVX_NATIVE(jint, Vector##_1size)(JNIEnv * env, jclass, jlong self) {                               \
    return call(env, &sizeOf<Element>, self);                                                        \
  }                                                                                                  \
  KVX_NATIVE(jboolean, Vector##_1isEmpty)(JNIEnv * env, jclass, jlong self) {                        \
    return call(env, &isEmpty<Element>, self);                                                       \
  }                                                                                                  \
  KVX_NATIVE(JavaElement, Vector##_1get)(JNIEnv * env, jclass, jlong self, jint index) {             \
    return call(env, &get<Element>, self, index);                                                    \
  }                                                                                                  \
  KVX_NATIVE(void, Vector##_1set)(JNIEnv * env, jclass, jlong self, jint index, JavaElement value) { \
    call(env, &set<Element>, self, index, value);                                                    \
  }                                                                                                  \
  KVX_NATIVE(void, Vector##_1add)(JNIEnv * env, jclass, jlong self, JavaElement value) {             \
    call(env, &add<Element>, self, value);                                                           \
  }                                                                                                  \
  KVX_NATIVE(void, Vector##_1clear)(JNIEnv * env, jclass, jlong self) {                              \
    call(env, &clear<Element>, self);                                                                \
  }

KVX_VECTOR_NATIVES(StringVector, std::string, jstring)
KVX_VECTOR_NATIVES(IntVector, int, jint)

#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

/// Gives the objects that a front end owns numbers by which it names them. A number is never used again, nor
/// by another registry, so a handle that is stale or of another kind is found out.
class HandleNumbers {
 public:
  static std::int64_t next() {
    static std::atomic<std::int64_t> last{0};
    return ++last;
  }
};

/// Owns the objects of one kind that the front end has made and not destroyed yet. Any thread may call.
template <class T>
class HandleRegistry {
 public:
  static HandleRegistry& getGlobal() {
    static HandleRegistry registry;
    return registry;
  }

  std::int64_t add(std::shared_ptr<T> object) {
    const std::int64_t handle = HandleNumbers::next();
    const std::lock_guard lock(m_mutex);
    m_objects.emplace(handle, std::move(object));
    return handle;
  }

  /// Null for a handle that names no object. The object lives as long as somebody uses it.
  std::shared_ptr<T> find(std::int64_t handle) const {
    const std::lock_guard lock(m_mutex);
    const auto found = m_objects.find(handle);
    return found == m_objects.end() ? nullptr : found->second;
  }

  /// Gives the object up; null as above.
  std::shared_ptr<T> remove(std::int64_t handle) {
    const std::lock_guard lock(m_mutex);
    const auto node = m_objects.extract(handle);
    return node ? std::move(node.mapped()) : nullptr;
  }

 private:
  HandleRegistry() = default;

  mutable std::mutex m_mutex;
  std::unordered_map<std::int64_t, std::shared_ptr<T>> m_objects;
};

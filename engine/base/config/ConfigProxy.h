#pragma once

#include <memory>
#include <utility>

#include "engine/base/config/ConfigImpl.h"

namespace kvxe {

/// Forwards every operation to the implementation that it owns.
template <class A, class T>
class ConfigProxyBase : public ConfigIfc<T> {
 public:
  explicit ConfigProxyBase(std::unique_ptr<ConfigImpl<A, T>> impl) : m_impl(std::move(impl)) {}

  bool populate(const T& cfg, PopulatePolicy policy) override { return m_impl->populate(cfg, policy); }
  bool populate(const std::vector<T>& cfgs, PopulatePolicy policy) override {
    return m_impl->populate(cfgs, policy);
  }
  bool remove(const std::string& name) override { return m_impl->remove(name); }
  bool remove(const std::vector<std::string>& names) override { return m_impl->remove(names); }
  using ConfigIfc<T>::edit;
  bool edit(const T& cfg) override { return m_impl->edit(cfg); }
  bool exists(const std::string& name) const override { return m_impl->exists(name); }
  std::unique_ptr<T> get(const std::string& name) const override { return m_impl->get(name); }
  std::map<std::string, std::unique_ptr<T>> get(const std::set<std::string>& names) const override {
    return m_impl->get(names);
  }
  std::vector<std::unique_ptr<T>> getAll() const override { return m_impl->getAll(); }
  const T& getDefault() const override { return m_impl->getDefault(); }

 protected:
  ConfigImpl<A, T>& impl() const { return *m_impl; }

 private:
  std::unique_ptr<ConfigImpl<A, T>> m_impl;
};

/// The object that clients get. Records with operations of their own specialise it.
template <class A, class T>
class ConfigProxy final : public ConfigProxyBase<A, T> {
 public:
  using ConfigProxyBase<A, T>::ConfigProxyBase;
};

}  // namespace kvxe

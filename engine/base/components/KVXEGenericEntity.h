#pragma once

#include "engine/base/components/KVXEGenericBase.h"

/// What all components share: a place in the tree and the flag that something changed. A component that
/// extends another one has it from there.
template <class B>
class KVXEGenericEntity : public B {
 public:
  using B::B;
};

template <>
class KVXEGenericEntity<KVXEGenericBase> : public KVXEGenericBase {
 public:
  /// The parent owns the component; null for a root.
  explicit KVXEGenericEntity(const std::string& lid, KVXEGenericBase* parent = nullptr)
      : m_parent(parent), m_uid(parent ? parent->getChildUid(lid) : lid), m_lid(lid) {}

  const std::string& getLid() const override { return m_lid; }
  const std::string& getUid() const override { return m_uid; }
  std::string getChildUid(const std::string& lid) const override { return m_uid + "." + lid; }
  KVXEGenericBase* getParent() const override { return m_parent; }

  bool isChanged() const override { return m_changed; }
  void clearChanged() override { m_changed = false; }
  void markChanged() override {
    m_changed = true;
    if (m_parent) m_parent->markChanged();
  }

 protected:
  // Properties stack on top of this: see KVXEGenericProperties.h.
  template <class Message>
  void write(Message&) const {}
  void clearAll() {}

 private:
  KVXEGenericBase* m_parent;
  bool m_changed = false;
  std::string m_uid;
  std::string m_lid;
};

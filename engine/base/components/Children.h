#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kvxe {

/// The children of one kind that a component owns, in the order in which they were added.
template <class Child>
class Children {
 public:
  template <class Parent>
  Child& add(const std::string& lid, Parent* parent) {
    m_children.push_back(std::make_unique<Child>(lid, parent));
    parent->markChanged();
    return *m_children.back();
  }
  void clear() { m_children.clear(); }

  size_t size() const { return m_children.size(); }
  Child& operator[](size_t index) const { return *m_children[index]; }

  /// Makes the messages of a repeated field say what the children are.
  template <class Messages>
  void populate(Messages* messages) const {
    messages->Clear();
    for (const auto& child : m_children) child->populate(messages->Add());
  }

 private:
  std::vector<std::unique_ptr<Child>> m_children;
};

}  // namespace kvxe

/// A layer, as in KVXEGenericProperties.h, that gives a component children. With Button as the name it is
/// `has::Buttons`, with `addButton(lid)` and `getButtons()`. `field` is the repeated field that they fill.
#define KVXE_CHILDREN(Child, Name, field)                                          \
  namespace kvxe::has {                                                            \
  template <class B>                                                               \
  class Name##s : public B {                                                       \
   public:                                                                         \
    using B::B;                                                                    \
    Child& add##Name(const std::string& lid) { return m_children.add(lid, this); } \
    const Children<Child>& get##Name##s() const { return m_children; }             \
                                                                                   \
   protected:                                                                      \
    template <class Message>                                                       \
    void write(Message& message) const {                                           \
      B::write(message);                                                           \
      m_children.populate(message.mutable_##field());                              \
    }                                                                              \
    void clearAll() {                                                              \
      m_children.clear();                                                          \
      B::clearAll();                                                               \
    }                                                                              \
                                                                                   \
   private:                                                                        \
    Children<Child> m_children;                                                    \
  };                                                                               \
  }  // namespace kvxe::has

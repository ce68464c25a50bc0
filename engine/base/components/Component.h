#pragma once

#include "engine/base/components/KVXEGenericEntity.h"
#include "engine/base/components/KVXEGenericProperties.h"

namespace kvxe {
namespace detail {

template <class B, template <class> class... Properties>
struct Stack {
  using Type = B;
};

template <class B, template <class> class First, template <class> class... Rest>
struct Stack<B, First, Rest...> {
  using Type = typename Stack<First<B>, Rest...>::Type;
};

}  // namespace detail

/// A component over the base B that is sent as a Message: the list of its properties and kinds of children,
/// in the order in which they are written. Most components are nothing but such a list.
template <class B, class Message, template <class> class... Properties>
class Component : public detail::Stack<KVXEGenericEntity<B>, Properties...>::Type {
  using Stacked = typename detail::Stack<KVXEGenericEntity<B>, Properties...>::Type;

 public:
  using Stacked::Stacked;

  /// Makes the message say what the component is, whatever it said before. False for a null message.
  bool populate(Message* message) const {
    return populate(message, [](Message&) {});
  }

  void reset() override {
    this->clearAll();
    this->markChanged();
  }

 protected:
  /// `fill` writes what is not a property, between the properties and the identifier.
  template <class Fill>
  bool populate(Message* message, const Fill& fill) const {
    if (!message) return false;
    this->write(*message);
    fill(*message);
    message->set_uid(this->getUid());
    return true;
  }
};

}  // namespace kvxe

#pragma once

#include <boost/optional.hpp>

#include "engine/base/components/KVXEGenericBase.h"

/// Properties as layers: `has::Caption<B>` is the component B with a caption. Each layer overrides the
/// accessors of its property, and adds its field to what `write` writes.
namespace kvxe {

/// A value that may be absent. An absent value is not sent, and the front end keeps its default.
template <class B, class Type>
class Property : public B {
 public:
  using B::B;

 protected:
  void store(Param<Type> value) {
    m_value = value;
    this->markChanged();
  }
  void discard() {
    m_value = boost::none;
    this->markChanged();
  }
  bool read(Type& out) const {
    if (m_value) out = *m_value;
    return m_value.has_value();
  }
  void clearAll() {
    m_value = boost::none;
    B::clearAll();
  }

  boost::optional<Type> m_value;
};

namespace has {

#define KVXE_LAYER(Type, Name, READER, WRITER)                         \
  template <class B>                                                   \
  class Name : public Property<B, Type> {                              \
   public:                                                             \
    using Property<B, Type>::Property;                                 \
    void set##Name(Param<Type> value) override { this->store(value); } \
    void clear##Name() override { this->discard(); }                   \
    READER                                                             \
                                                                       \
   protected:                                                          \
    template <class Message>                                           \
    void write(Message& message) const {                               \
      B::write(message);                                               \
      const auto& value = this->m_value;                               \
      WRITER                                                           \
    }                                                                  \
  };

#define KVXE_WRITE_VALUE(field)  \
  if (value) {                   \
    message.set_##field(*value); \
  } else {                       \
    message.clear_##field();     \
  }
#define KVXE_WRITE_LIST(field) \
  message.clear_##field();     \
  if (value)                   \
    for (const std::string& text : *value) message.add_##field(text);

#define KVXE_VALUE(Type, Name, field)                                                   \
  KVXE_LAYER(                                                                           \
      Type, Name, bool get##Name(Type& out) const override { return this->read(out); }, \
      KVXE_WRITE_VALUE(field))
#define KVXE_LIST(Name, field)                                                                  \
  KVXE_LAYER(                                                                                   \
      std::vector<std::string>, Name,                                                           \
      bool get##Name(std::vector<std::string>& out) const override { return this->read(out); }, \
      KVXE_WRITE_LIST(field))
#define KVXE_FLAG(Name, reader, field)                                                    \
  KVXE_LAYER(                                                                             \
      bool, Name, bool reader() const override { return this->m_value.value_or(false); }, \
      KVXE_WRITE_VALUE(field))
#include "engine/base/components/KVXEGenericProperties.def"

#undef KVXE_LAYER
#undef KVXE_WRITE_VALUE
#undef KVXE_WRITE_LIST

}  // namespace has
}  // namespace kvxe

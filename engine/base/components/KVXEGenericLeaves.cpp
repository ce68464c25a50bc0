#include "engine/base/components/KVXEGenericLeaves.h"

#include "messages/generic_components.pb.h"

namespace {

constexpr int defaultTextFieldWidth = 100;  // pixels

}  // namespace

bool KVXEGenericTextField::populate(GenericTextField* field) const {
  return Component::populate(field, [](GenericTextField& message) {
    if (!message.has_width()) message.set_width(defaultTextFieldWidth);
  });
}

bool KVXEGenericFileTextField::populate(GenericFileTextField* field) const {
  return Component::populate(field, [](GenericFileTextField& message) {
    if (!message.has_tooltip()) message.clear_backgroundcolor();
  });
}

#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

enum GenericGuiEnums_FileChooserType : int;

namespace kvxe {

/// How a setter takes a value: small ones by value.
template <class Type>
using Param = std::conditional_t<std::is_trivially_copyable_v<Type>, Type, const Type&>;

}  // namespace kvxe

/// A component of a dialog: what the engine keeps of what the front end draws. A dialog is a tree of them;
/// each component owns its children and knows its parent.
///
/// Every property that any component has can be reached through this class. What the component at hand does
/// not have is ignored by `set` and `clear`, and reads as absent: `getX(out)` returns false and leaves `out`,
/// a flag reads false. The properties stand in KVXEGenericProperties.def.
class KVXEGenericBase {
 public:
  virtual ~KVXEGenericBase() = default;
  KVXEGenericBase(const KVXEGenericBase&) = delete;
  KVXEGenericBase& operator=(const KVXEGenericBase&) = delete;

  /// The local name, given by whoever made the component.
  virtual const std::string& getLid() const = 0;
  /// Names the component in the whole dialog and on the wire: the uid of the parent, a dot and the lid; the
  /// lid alone for a root. A component is looked up by searching uids for its lid, so a lid has to be a part
  /// of the uid, and lids that hold one another, or the names of panels around them, are better avoided.
  virtual const std::string& getUid() const = 0;
  /// The uid of a child with that lid.
  virtual std::string getChildUid(const std::string& lid) const = 0;
  /// Null for a root.
  virtual KVXEGenericBase* getParent() const = 0;

  /// Something changed here or below since `clearChanged`.
  virtual bool isChanged() const = 0;
  /// Of this component alone.
  virtual void clearChanged() = 0;
  /// Flags the component and all above it.
  virtual void markChanged() = 0;
  /// Drops the children and all properties; the component can then be filled again.
  virtual void reset() = 0;

#define KVXE_VALUE(Type, Name, field)          \
  virtual void set##Name(kvxe::Param<Type>) {} \
  virtual void clear##Name() {}                \
  virtual bool get##Name(Type&) const {        \
    return false;                              \
  }
#define KVXE_LIST(Name, field) KVXE_VALUE(std::vector<std::string>, Name, field)
#define KVXE_FLAG(Name, reader, field) \
  virtual void set##Name(bool) {}      \
  virtual void clear##Name() {}        \
  virtual bool reader() const {        \
    return false;                      \
  }
#include "engine/base/components/KVXEGenericProperties.def"

 protected:
  KVXEGenericBase() = default;
};

// Every property on every component, through the base: what a component has is told by its wire message.

#include <google/protobuf/descriptor.h>
#include <google/protobuf/message.h>
#include <gtest/gtest.h>

#include <boost/algorithm/string/case_conv.hpp>
#include <memory>
#include <set>

#include "engine/base/components/KVXEGenericDialog.h"
#include "messages/generic_components.pb.h"

namespace {

namespace pb = google::protobuf;
using Names = std::set<std::string>;

/// A component and the message that it is sent into.
struct Subject {
  virtual ~Subject() = default;
  virtual KVXEGenericBase& base() = 0;
  virtual bool populateNull() const = 0;
  virtual const pb::Message& populated() = 0;

  /// The fields that are present, the component's identifier aside.
  Names present() {
    const pb::Message& message = populated();
    std::vector<const pb::FieldDescriptor*> fields;
    message.GetReflection()->ListFields(message, &fields);
    Names names;
    for (const pb::FieldDescriptor* field : fields) names.insert(field->lowercase_name());
    EXPECT_EQ(names.erase("uid"), 1u);
    return names;
  }
};

template <class Component, class Message>
struct SubjectOf : Subject {
  KVXEGenericBase& base() override { return component; }
  bool populateNull() const override { return component.populate(nullptr); }
  const pb::Message& populated() override {
    EXPECT_TRUE(component.populate(&message));
    return message;
  }
  Component component{"Lid"};
  Message message;
};

struct Case {
  const char* name;
  std::shared_ptr<Subject> (*make)();
  Names always = {};  // what goes out when nothing is set
};

#define COMPONENT(Kind) \
#Kind, []() -> std::shared_ptr < Subject> { return std::make_shared<SubjectOf<KVXE##Kind, Kind>>(); }
const Case cases[] = {
    {COMPONENT(GenericDialog)},
    {COMPONENT(GenericContentPanel)},
    {COMPONENT(GenericSectionPanel)},
    {COMPONENT(GenericSection)},
    {COMPONENT(GenericGridPanel)},
    {COMPONENT(GenericGuiComponent), {"location"}},
    {COMPONENT(GenericGridLocation)},
    {COMPONENT(GenericRectangle)},
    {COMPONENT(GenericLabel)},
    {COMPONENT(GenericButton)},
    {COMPONENT(GenericFileChooserButton)},
    {COMPONENT(GenericCheckBox)},
    {COMPONENT(GenericRadioButtonGroup)},
    {COMPONENT(GenericRadioButton)},
    {COMPONENT(GenericComboBox)},
    {COMPONENT(GenericSpinner)},
    {COMPONENT(GenericTextField), {"width"}},
    {COMPONENT(GenericFileTextField)},
};

/// A property through the base. `read` is whether it is set; what it reads is checked on the way.
struct Property {
  std::string name;
  std::string field;
  void (*set)(KVXEGenericBase&);
  void (*clear)(KVXEGenericBase&);
  bool (*read)(const KVXEGenericBase&);
};

template <class Type>
Type sample() {
  return static_cast<Type>(1);
}
template <>
std::string sample<std::string>() {
  return "5 µm";
}
template <>
std::vector<std::string> sample<std::vector<std::string>>() {
  return {"a", "", "b"};
}

#define KVXE_VALUE(Type, Name, field)                                      \
  {#Name, #field, [](KVXEGenericBase& c) { c.set##Name(sample<Type>()); }, \
   [](KVXEGenericBase& c) { c.clear##Name(); },                            \
   [](const KVXEGenericBase& c) {                                          \
     Type out{};                                                           \
     const bool isSet = c.get##Name(out);                                  \
     EXPECT_EQ(out, isSet ? sample<Type>() : Type{}) << #Name;             \
     return isSet;                                                         \
   }},
#define KVXE_LIST(Name, field) KVXE_VALUE(std::vector<std::string>, Name, field)
#define KVXE_FLAG(Name, reader, field)                           \
  {#Name, #field, [](KVXEGenericBase& c) { c.set##Name(true); }, \
   [](KVXEGenericBase& c) { c.clear##Name(); }, [](const KVXEGenericBase& c) { return c.reader(); }},
const Property properties[] = {
#include "engine/base/components/KVXEGenericProperties.def"
};

/// The fields of the message that are neither components nor the identifier.
Names propertyFields(const pb::Message& message) {
  Names names;
  for (int i = 0; i < message.GetDescriptor()->field_count(); ++i) {
    const pb::FieldDescriptor& field = *message.GetDescriptor()->field(i);
    if (!field.message_type() && field.name() != "uid") names.insert(field.lowercase_name());
  }
  return names;
}

class EveryComponent : public ::testing::TestWithParam<Case> {
 protected:
  std::shared_ptr<Subject> subject = GetParam().make();
  KVXEGenericBase& component = subject->base();
};

TEST_P(EveryComponent, SendsItsIdentifierAloneWhenNothingIsSet) {
  EXPECT_EQ(subject->present(), GetParam().always);
  EXPECT_FALSE(subject->populateNull());
  EXPECT_FALSE(component.isChanged());
}

TEST_P(EveryComponent, SetsSendsAndClearsItsPropertiesAndIgnoresAllOthers) {
  Names known = propertyFields(subject->populated());
  // A file field has a colour only beside a tool tip: it has a test of its own.
  const bool isFileField = std::string(GetParam().name) == "GenericFileTextField";
  for (const Property& property : properties) {
    SCOPED_TRACE(property.name);
    const bool isKnown = known.erase(property.field) > 0;
    EXPECT_FALSE(property.read(component));
    property.set(component);
    EXPECT_EQ(component.isChanged(), isKnown);
    EXPECT_EQ(property.read(component), isKnown);
    Names expected = GetParam().always;
    if (isKnown && !(isFileField && property.name == "BackgroundColor")) expected.insert(property.field);
    EXPECT_EQ(subject->present(), expected);

    component.clearChanged();
    property.clear(component);
    EXPECT_EQ(component.isChanged(), isKnown);
    EXPECT_FALSE(property.read(component));
    EXPECT_EQ(subject->present(), GetParam().always) << "the message still says what was cleared";
    component.clearChanged();
  }
  EXPECT_EQ(known, Names()) << "fields of the message that no property writes";
}

TEST_P(EveryComponent, ResetClearsAllProperties) {
  for (const Property& property : properties) property.set(component);
  component.clearChanged();
  component.reset();
  for (const Property& property : properties) EXPECT_FALSE(property.read(component)) << property.name;
  EXPECT_EQ(subject->present(), GetParam().always);
  EXPECT_TRUE(component.isChanged());
}

INSTANTIATE_TEST_SUITE_P(Generic, EveryComponent, ::testing::ValuesIn(cases),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Properties, AreNamedAsTheirFields) {
  for (const Property& property : properties)
    EXPECT_EQ(boost::to_lower_copy(property.name), property.field) << "the front end looks for the same name";
}

}  // namespace

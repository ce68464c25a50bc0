#pragma once

#include "engine/base/components/Component.h"

class GenericButton;
class GenericCheckBox;
class GenericComboBox;
class GenericFileChooserButton;
class GenericFileTextField;
class GenericLabel;
class GenericRectangle;
class GenericSpinner;
class GenericTextField;

// Components without children, each with the list of its properties.

/// Bounds in pixels.
using KVXEGenericRectangle = kvxe::Component<KVXEGenericBase, GenericRectangle, kvxe::has::X, kvxe::has::Y,
                                             kvxe::has::Width, kvxe::has::Height>;

/// A text that the user reads.
using KVXEGenericLabel =
    kvxe::Component<KVXEGenericBase, GenericLabel, kvxe::has::Text, kvxe::has::Tooltip,
                    kvxe::has::ForegroundColor, kvxe::has::BackgroundColor, kvxe::has::IsBold>;

using KVXEGenericButton = kvxe::Component<KVXEGenericBase, GenericButton, kvxe::has::Text, kvxe::has::Tooltip,
                                          kvxe::has::IsDisabled>;

/// A button that asks for a file before it acts.
using KVXEGenericFileChooserButton =
    kvxe::Component<KVXEGenericBase, GenericFileChooserButton, kvxe::has::Text, kvxe::has::Tooltip,
                    kvxe::has::IsDisabled, kvxe::has::DefaultFileName, kvxe::has::FileChooserTitle,
                    kvxe::has::FileChooserType, kvxe::has::FileTypeDescription, kvxe::has::FileTypeExtensions,
                    kvxe::has::DialogWidth>;

using KVXEGenericCheckBox =
    kvxe::Component<KVXEGenericBase, GenericCheckBox, kvxe::has::Caption, kvxe::has::Tooltip,
                    kvxe::has::IsSelected, kvxe::has::IsDisabled, kvxe::has::BackgroundColor>;

/// A drop-down: its current item, and the choices.
using KVXEGenericComboBox =
    kvxe::Component<KVXEGenericBase, GenericComboBox, kvxe::has::Caption, kvxe::has::Tooltip,
                    kvxe::has::CurrentItem, kvxe::has::Choices, kvxe::has::IsEditable, kvxe::has::IsDisabled,
                    kvxe::has::BackgroundColor>;

/// A number with its range.
using KVXEGenericSpinner =
    kvxe::Component<KVXEGenericBase, GenericSpinner, kvxe::has::Caption, kvxe::has::Tooltip, kvxe::has::Value,
                    kvxe::has::Minimum, kvxe::has::Maximum, kvxe::has::Step, kvxe::has::Unit,
                    kvxe::has::IsDisabled, kvxe::has::BackgroundColor>;

/// A line of text. Its width always goes out: 100 pixels unless set.
class KVXEGenericTextField final
    : public kvxe::Component<KVXEGenericBase, GenericTextField, kvxe::has::Caption, kvxe::has::Tooltip,
                             kvxe::has::Text, kvxe::has::InActiveText, kvxe::has::Width, kvxe::has::Unit,
                             kvxe::has::IsEditable, kvxe::has::IsDisabled, kvxe::has::BackgroundColor> {
 public:
  using Component::Component;
  bool populate(GenericTextField* field) const;
};

/// A line of text that names files, with a button for choosing them. Its background colour goes out only with
/// a tool tip: a field is coloured because something is wrong with it, and the tool tip says what.
class KVXEGenericFileTextField final
    : public kvxe::Component<KVXEGenericBase, GenericFileTextField, kvxe::has::Caption, kvxe::has::Tooltip,
                             kvxe::has::Text, kvxe::has::InActiveText, kvxe::has::DefaultFileName,
                             kvxe::has::FileChooserTitle, kvxe::has::FileChooserType,
                             kvxe::has::FileTypeDescription, kvxe::has::FileTypeExtensions,
                             kvxe::has::SelectMultipleFiles, kvxe::has::IsEditable, kvxe::has::IsDisabled,
                             kvxe::has::BackgroundColor> {
 public:
  using Component::Component;
  bool populate(GenericFileTextField* field) const;
};

#pragma once

#include "engine/base/components/KVXEGenericGuiComponent.h"

class GenericContentPanel;
class GenericSection;
class GenericSectionPanel;

KVXE_CHILDREN(KVXEGenericGridPanel, GridPanel, gridpanels)

/// The content of a dialog: grid panels, one below the other.
using KVXEGenericContentPanel =
    kvxe::Component<KVXEGenericBase, GenericContentPanel, kvxe::has::Caption, kvxe::has::GridPanels>;

/// Grid panels under a heading, the caption, which opens and closes them.
using KVXEGenericSection =
    kvxe::Component<KVXEGenericBase, GenericSection, kvxe::has::Caption, kvxe::has::Tooltip,
                    kvxe::has::IsExpanded, kvxe::has::IsDisabled, kvxe::has::IsHidden, kvxe::has::GridPanels>;

KVXE_CHILDREN(KVXEGenericSection, Section, sections)

/// The content of a dialog that is divided into sections.
using KVXEGenericSectionPanel =
    kvxe::Component<KVXEGenericBase, GenericSectionPanel, kvxe::has::Caption, kvxe::has::Sections>;

#include "engine/base/components/KVXEGenericGridPanel.h"

#include "engine/base/components/KVXEGenericGuiComponent.h"

KVXEGenericGridPanel::KVXEGenericGridPanel(const std::string& lid, KVXEGenericBase* parent)
    : Component(lid, parent) {}

KVXEGenericGridPanel::~KVXEGenericGridPanel() = default;

#pragma once

#include <memory>
#include <span>

#include "engine/base/workbook/KVXETab.h"

/// One line of a factory's table: the tab type and how its class is made.
struct KVXETabMaker {
  KVXEEnums::TabType type;
  std::unique_ptr<KVXETab> (*make)(KVXEBook* book, KVXEEnums::TabType type);
};

/// The way to make a concrete tab: construct it, then let it define its content.
template <class Tab>
std::unique_ptr<KVXETab> makeTab(KVXEBook* book, KVXEEnums::TabType type) {
  auto tab = std::make_unique<Tab>(book, type);
  tab->init();
  return tab;
}

/// The tab that the table makes for the type; null when the table leaves it out.
inline std::unique_ptr<KVXETab> makeFrom(std::span<const KVXETabMaker> makers, KVXEBook* book,
                                         KVXEEnums::TabType type) {
  for (const KVXETabMaker& maker : makers)
    if (maker.type == type) return maker.make(book, type);
  return nullptr;
}

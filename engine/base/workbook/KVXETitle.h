#pragma once

#include <array>
#include <string>

#include "engine/base/workbook/KVXEEnums.h"

/// The identity of a column or a table: one immutable object with a spelling for each medium.
///
/// Titles are static members of the tab classes and are compared by address, so they are neither copied nor
/// moved, and each is defined in exactly one source file.
class KVXETitle {
 public:
  /// `name` is the programmatic spelling; the screen's is derived from it, the others from the screen's.
  explicit KVXETitle(std::string name);
  /// As above with a screen spelling of its own.
  KVXETitle(std::string name, std::string display);
  /// As above with the key that files of the older estimator use.
  KVXETitle(std::string name, std::string display, std::string lvr);

  KVXETitle(const KVXETitle&) = delete;
  KVXETitle& operator=(const KVXETitle&) = delete;

  /// The spelling of the given kind.
  const std::string& getTag(KVXEEnums::TitleType type) const;
  void setDisplayTag(const std::string& display);

  /// The screen spelling; with `wrap` as the HTML of a column head: broken in two lines near its middle, and
  /// padded where the column holds long names.
  std::string getDisplayTag(bool wrap) const;

 private:
  void init(std::string&& name);

  friend class KVXEHeaderRow;

  std::array<std::string, 5> m_tags;
  /// The column where a table found the title last: a guess that spares most searches, and never trusted.
  mutable unsigned int m_columnHint = 0;
};

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "clients/cli/BookEntries.h"
#include "clients/cli/Estimate.h"

namespace kvx {

/// A design and its results, apart from the book, of which there is only one at a time.
struct Snapshot {
  std::string path;
  BookEntries entries;
  Estimate estimate;
};

/// A value that two designs do not share; nothing where a design does not have it.
struct Difference {
  std::string group;  ///< the row of a table, or the kind of result
  std::string name;   ///< the column, or what the result is of
  std::optional<std::string> a, b;
};

/// What differs between two designs, in the order of the first. Rows of a table that the user makes are
/// compared with those of the same name, wherever they stand; where a value came from does not count. Results
/// count to the digits that are shown.
struct DesignDifference {
  std::vector<Difference> settings, results;
  bool isEmpty() const { return settings.empty() && results.empty(); }
};
DesignDifference compareDesigns(const Snapshot& a, const Snapshot& b);

}  // namespace kvx

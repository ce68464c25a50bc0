#pragma once

#include <string>

class KVXEBook;

/// A real book that is quick to calculate: few rows in the tables that the user edits.
namespace kvxe::fuzz {

/// Rows that such a table has at first.
inline constexpr unsigned int StartRows = 3;

/// Makes the book anew, calculated, with the default device and no open project. The front end got nothing so
/// far.
void makeSmallBook();
/// That of another architecture.
void makeSmallBook(const std::string& architecture);
/// Whether the current book is still one of the default device.
bool isSmallBookThere();
/// Gives tables that have grown, and those that have lost all rows, a few rows again.
void keepBookSmall();
KVXEBook* getSmallBook();

/// The first breach of the invariants of graph, cell states and tables in words, or an empty text.
std::string findBreach();
/// Calculates what waits, and tells in words how it differs from a full calculation; empty when it does not.
std::string findInconsistency();

}  // namespace kvxe::fuzz

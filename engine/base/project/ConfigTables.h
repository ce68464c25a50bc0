#pragma once

class KVXETable;

namespace kvxe {

/// The tables in which a design's instances of a block are configured, one row each. What an import filled in
/// there stays editable but for the names.
bool isConfigTable(const KVXETable& table);
/// Those of the PCIe blocks.
bool isPcieConfigTable(const KVXETable& table);
/// Those of the host interface blocks.
bool isHicConfigTable(const KVXETable& table);

}  // namespace kvxe

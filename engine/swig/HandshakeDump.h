#pragma once

#include <string>

class KvxHandshakeData;

namespace kvxe {

/// Writes a handshake message as JSON into the current directory, into a file named by the local time to the
/// second, then `name`: "2031-05-17-09-30-00-GuiToEngineHandshake.json". Of the messages of one name in one
/// second the last stays. Returns the file's name, or "Error: NoFileCreated".
std::string dumpHandshake(const KvxHandshakeData& message, const std::string& name);

}  // namespace kvxe

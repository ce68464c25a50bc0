#include "engine/base/project/ProjectMessages.h"

#include "engine/base/services/KVXEHandshakeDialog.h"

namespace kvxe {

namespace {

constexpr int Warning = 2;
constexpr int Error = 3;

void report(int line, int severity, const std::string& text) {
  KVXEHandshakeDialog::getGlobal().appendHSMsg("engine/base/project/KVXEProject", line, severity, text);
}

}  // namespace

bool reportError(int line, const std::string& text) {
  report(line, Error, text);
  return false;
}

void reportWarning(int line, const std::string& text) {
  report(line, Warning, text);
}

}  // namespace kvxe

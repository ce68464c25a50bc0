#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "engine/swig/KVXEGuiInterface.h"
#include "tests/kit/ProjectDirectory.h"

/// A front end with its one object of the engine: it sends requests and fetches replies as bytes.
class FrontEnd {
 public:
  using Op = KvxOperationData;
  using Arguments = std::vector<std::pair<KvxOperationData_ArgumentType, std::string>>;
  struct Flags {
    bool mockMode = false, dumpJson = false, internalView = true, developerView = false;
  };

  FrontEnd() : m_gui(std::make_unique<KVXEGuiInterface>()) {}
  /// Leaves neither book nor project nor messages.
  ~FrontEnd();

  KVXEGuiInterface& gui() { return *m_gui; }
  /// What happens when the user leaves and comes back: the book is still there.
  void restart();

  /// Chooses the architecture and reads the drop-downs once, as a dialog that shows them does.
  void chooseArchitecture(const std::string& name);
  /// Chooses the value of a drop-down by its name.
  void choose(const std::string& dropDown, const std::string& value);
  /// All of the way from the start to an open project.
  KvxHandshakeData createProject(const std::string& architecture, const std::string& path = "design.kvx");

  static KvxHandshakeData request(KvxOperationData_OperationType type, const Arguments& arguments = {});
  KvxHandshakeData send(const KvxHandshakeData& request) { return send(request, Flags()); }
  KvxHandshakeData send(const KvxHandshakeData& request, Flags flags);
  KvxHandshakeData send(KvxOperationData_OperationType type, const Arguments& arguments = {});
  unsigned int sendBytes(std::string bytes) { return sendBytes(std::move(bytes), Flags()); }
  unsigned int sendBytes(std::string bytes, Flags flags);
  /// The reply that lies ready.
  KvxHandshakeData fetch(unsigned int size);

 private:
  void readDropDowns();

  ProjectDirectory m_directory;  // where its projects are
  std::unique_ptr<KVXEGuiInterface> m_gui;
};

/// The names of the parts that a message has: "bookBundle, status".
std::string partsOf(const KvxHandshakeData& message);

/// What the engine would say about the project now.
KvxStatusData projectStatus();

#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"
#include "messages/handshake.pb.h"

/// The door through which the front end talks to the engine. All that changes the book or shows it travels
/// through one pair of calls: `getKvxHandshakeDataSize` applies a request and makes the reply,
/// `getKvxHandshakeDataByteArray` fetches it. The other operations are small queries beside the message.
///
/// One caller at a time; a handshake and the fetch of its reply are a pair on one thread. What fails in the
/// engine is told in the reply's message dialog or on standard output; an exception that passes through a
/// handshake leaves an empty reply.
class KVXEGuiInterface {
 public:
  using StringVector = std::vector<std::string>;
  using IntVector = std::vector<int>;

  /// Bytes of the longest request that is taken. A message costs up to 50 times its length once it is parsed,
  /// and no book's edits come near this.
  static constexpr int MaxRequestSize = 8 << 20;
  /// Beyond this size the memory of a request is given back with the next.
  static constexpr int LargeRequestSize = 1 << 20;

  KVXEGuiInterface();
  /// Ends the part selection with it; a book that is still there stays.
  ~KVXEGuiInterface();
  KVXEGuiInterface(const KVXEGuiInterface&) = delete;
  KVXEGuiInterface& operator=(const KVXEGuiInterface&) = delete;

  // The handshake.

  /// Applies the request (a serialised KvxHandshakeData) and returns the size of the reply in bytes. An empty
  /// request gives 0 and changes nothing, one without an operation comes back as it was parsed.
  /// \param mockMode run no calculation, and touch neither project nor wizards
  /// \param dumpJson write request and reply to files in the current directory
  /// \param internalView, developerView who looks; the developer wins
  /// Throws std::length_error for a negative length and one beyond MaxRequestSize.
  unsigned int getKvxHandshakeDataSize(unsigned char* bytes, int length, bool mockMode, bool dumpJson,
                                       bool internalView, bool developerView);
  /// Writes the last reply, as often as it is asked for. False when it does not fit.
  bool getKvxHandshakeDataByteArray(unsigned char* bytes, int length);
  /// The name of an operation on screen; empty for those without one.
  static std::string getOperationString(KvxOperationData_OperationType type);

  // The choice of the device. Without a part selection the lists stay as they are.

  void resetDeviceSelectionDropDowns();
  /// Replaces the list with the names of the drop-downs; their positions are the indices below.
  void getDeviceSelectionDropDownsList(StringVector& list);
  /// Replaces the list with the values of a drop-down and returns the position of the current one; -1 without
  /// such a drop-down.
  int getDeviceSelectionDropDownValues(int index, StringVector& list);
  void setDeviceSelectionDropDownCurrentValue(int index, const std::string& value);
  /// The printed name; empty without a device.
  std::string getSelectedDeviceName();
  static std::string getSelectedDeviceToolTip();
  void getArchitectureDropDownsList(StringVector& list);
  /// Appends the names of the architectures and returns the position of the first; there is one drop-down,
  /// whatever the index.
  int getArchitectureDropDownValues(int index, StringVector& list);
  void setArchitectureDropDownCurrentValue(int index, const std::string& value);
  static bool hasPartForSelectedArchitecture();

  // The names of the open project; empty without one.

  std::string getProjectPath();
  std::string getProjectFileName();
  std::string getProjectName();
  static std::string getCurrentDesignName();

  // Edits of table rows (KVXETableOperations): rows are positions on screen, a text that comes back is empty
  // for success. A front end follows an edit up with a handshake of the operation TABLE_EDIT.

  bool hasTableEditingFeatures(int tab, int table);
  bool canInsertTableRow(int tab, int table, int row);
  std::string insertTableRow(int tab, int table, int row);
  bool canDeleteTableRows(int tab, int table, IntVector& rows);
  std::string deleteTableRows(int tab, int table, IntVector& rows);
  bool canDuplicateTableRows(int tab, int table, IntVector& rows);
  std::string duplicateTableRows(int tab, int table, IntVector& rows);
  bool canPasteTableRows(int tab, int table, IntVector& rows, int target);
  std::string pasteTableRows(int tab, int table, IntVector& rows, int target);
  bool canFillDownTableRows(int tab, int table, IntVector& rows);
  std::string fillDownTableRows(int tab, int table, IntVector& rows);
  bool canClearTableRows(int tab, int table, IntVector& rows);
  std::string clearTableRows(int tab, int table, IntVector& rows);
  /// The size of a table as a serialised GenericTreeTableData; 0 without such a table.
  int getGenericTreeTableDataSize(int tab, int table);
  void getGenericTreeTableData(int tab, int table, unsigned char* bytes, int length);
  // There is no edit history: false, and an empty text.
  bool canUndoLastEditOperation();
  std::string undoLastEditOperation();
  bool canRedoLastUndo();
  std::string redoLastUndo();

  // The steps of which handshakes consist. What fails is a line on standard output, and the next step
  // follows. Mock mode skips the calculations.

  void absorbGuiToEngineData(bool mockMode);
  void clearEngineToGuiData();
  void populateOutgoingProtobuf(bool mockMode);
  void fullCalculate(bool mockMode);
  void incrCalculate(bool mockMode);
  void setProjectSaved(bool isSaved);
  bool newProject(const std::string& path);
  bool openProject(const std::string& path);
  bool saveProject(const std::string& path);
  /// Closes wizards, book and project; the result is the project's.
  bool closeProject();
  /// The identifier of the component that opened a file chooser, and the chosen file, from the request's
  /// arguments; both empty without an operation.
  std::pair<std::string, std::string> getFileChooserHandshakeData() const;
  /// Whether the request's operation names a `.lvr` file to import.
  bool isImportLvrFileMenuAction() const;

 private:
  /// What is done for one type of operation.
  struct Operation;
  static const Operation* findOperation(KvxOperationData_OperationType type);

  void serveRequest(unsigned char* bytes, int length, bool mockMode, bool dumpJson,
                    KVXEEnums::Visibility visibility);
  void applyOperation(bool mockMode);
  bool importIntoNewProject(const std::string& file);
  void saveAndPopulate(const std::string& path);
  /// The value of the request's last argument of one of the types; null when there is none.
  const std::string* findArgument(std::initializer_list<KvxOperationData_ArgumentType> types) const;
  /// The same value, empty when there is none.
  std::string getArgument(std::initializer_list<KvxOperationData_ArgumentType> types) const;
  std::string performTableOperation(KVXEEnums::TableOperation operation, int tab, int table, IntVector& rows,
                                    int extra);

  void handleNewProject();
  void handleOpenProject();
  void handleSaveProject();
  void handleSaveAsProject();
  void handleCloseProject();
  void handleImportFile();
  void handleExportFile();
  void handleButtonClick();
  void handleDialogPacket();
  void handleDeviceChange();
  void handleIncrementalCalculate(bool mockMode);
  void handleFullCalculate(bool mockMode);
  void handleTableEditOperation(bool mockMode);

  std::unique_ptr<KvxHandshakeData> m_handshakeData;  // the request, and then its reply
  bool m_isOversized = false;                         // the last request was large
};

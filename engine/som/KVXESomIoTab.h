#pragma once

#include <map>
#include <string>

#include "engine/morlan/KVXEMorlanIoTab.h"

/// The pins of a module, whose banks get their supplies from the carrier card: each interface stands in a
/// bank, and all interfaces of a bank share its voltage.
class KVXESomIoTab : public KVXEMorlanIoTab {
 public:
  static const KVXETitle m_Bank;  ///< of the table of interfaces
  static const KVXETitle m_BankSuppliesTable, m_BankSupplyRail, m_BankSupplyVoltage, m_BankSupplyCurrent;

  using KVXEMorlanIoTab::KVXEMorlanIoTab;
  std::string className() const override { return "KVXESomIoTab"; }
  void init() override;

  // Formulas.
  /// The banks of the row's type.
  static void updateBank(const KVXEUID& uid);
  /// As in the base, with a warning on pins whose standard needs another voltage than the first interface of
  /// their bank.
  static void updatePinsInBank(const KVXEUID& uid);
  /// Voltage of a bank, by its first interface, or current.
  static void updateBankSupplies(const KVXEUID& uid);

 protected:
  std::vector<KVXEColumn> bankColumns() const override;
  KVXEFormula totalPinsFormula() const override { return &updatePinsInBank; }

 private:
  /// What the interfaces of a bank ask of its supply.
  struct BankDemand {
    float volts = 0.0f;  ///< of the first interface
    double amperes = 0.0;
  };

  void initBankSuppliesTable();
  void readDemands();

  std::map<std::string, BankDemand> m_demands;  ///< of all banks, behind the first voltage
};

#include "engine/morlan/KVXEMorlanSummaryConsoleTab.h"

void KVXEMorlanSummaryConsoleTab::init() {
  initProjectTable();
  initThermalTable();
  initPowerTable();
}

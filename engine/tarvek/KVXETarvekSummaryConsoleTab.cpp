#include "engine/tarvek/KVXETarvekSummaryConsoleTab.h"

void KVXETarvekSummaryConsoleTab::init() {
  initProjectTable();
  initThermalTable();
  initPowerTable();
}

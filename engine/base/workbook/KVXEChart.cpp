#include "engine/base/workbook/KVXEChart.h"

KVXEChart::KVXEChart() {
  addSeries("Static");
  addSeries("Dynamic");
}

KVXEChartSeries& KVXEChart::addSeries(const std::string& name) {
  m_series.push_back(std::make_unique<KVXEChartSeries>());
  m_series.back()->name = name;
  return *m_series.back();
}

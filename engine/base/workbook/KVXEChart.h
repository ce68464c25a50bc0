#pragma once

#include <boost/optional.hpp>
#include <memory>
#include <string>
#include <vector>

class GenericChart;
class GenericChartPoint;
class GenericChartSeries;

/// A point of a series: a number or a label along x, a number along y.
struct KVXEChartPoint {
  boost::optional<std::string> xLabel;
  boost::optional<double> x;
  boost::optional<double> y;

  bool populate(GenericChartPoint* point) const;
};

/// A named series of points.
struct KVXEChartSeries {
  std::string name;
  std::vector<std::unique_ptr<KVXEChartPoint>> points;

  bool populate(GenericChartSeries* series) const;
};

/// The chart of a table. What is not set, the front end chooses. A new chart has the two series of the
/// summary's pie.
class KVXEChart {
 public:
  enum class Type { PIE, BAR, LINE };

  KVXEChart();

  boost::optional<Type> type;
  boost::optional<std::string> title;
  boost::optional<std::string> xAxisTitle;
  boost::optional<std::string> yAxisTitle;
  boost::optional<bool> isLegendVisible;
  boost::optional<bool> isRangeLabelsVisible;

  /// Appends an empty series.
  KVXEChartSeries& addSeries(const std::string& name);
  const std::vector<std::unique_ptr<KVXEChartSeries>>& getSeries() const { return m_series; }
  void clearSeries() { m_series.clear(); }

  /// Fills the chart of a table; what is not set is left out. False for a null message, here and below.
  bool populate(GenericChart* chart) const;

 private:
  std::vector<std::unique_ptr<KVXEChartSeries>> m_series;
};

// Tables, their rows and heads, images and charts as they go out whole.

#include "engine/base/workbook/KVXEChart.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXEImage.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "engine/base/workbook/KVXEViewer.h"
#include "engine/swig/VisibilityTitle.h"
#include "messages/book.pb.h"

using KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::Visibility;

// How every table is shown.
namespace {

constexpr int HeaderHeight = 60;
constexpr int ToolTipDelay = 500;
constexpr int TableHeight = 100;
constexpr int EditableTableHeight = 300;

}  // namespace

bool KVXEHeaderCell::populate(GenericTreeTableColumnData* data) {
  if (!data) return false;
  const KVXEHeaderRow* header = getHeaderRow();
  const KVXETitle* title = header ? header->getIndexToTitle(getColumnIndex() / 2) : nullptr;
  if (title) data->set_tag(title->getTag(KVXEEnums::TitleType::SW));
  data->set_title(peekVal());
  data->set_columnclass(getPBColumnClass());
  if (getMsg() && !getMsg()->getDisplayText().empty()) data->set_tooltip(getMsg()->getDisplayText());
  data->set_ishidden(!KVXEViewer::sees(m_visibility));
  data->set_uid(KVXEUID(this).getUId());
  for (std::string& entry : getShownColumnList()) data->add_dropdown(std::move(entry));
  markGuiClean();
  return true;
}

bool KVXEHeaderRow::populate(GenericTreeTableHeaderData* data) {
  if (!data) return false;
  bool isComplete = true;
  for (unsigned int column = 0; column < getColumnCount(); ++column) {
    auto* head = static_cast<KVXEHeaderCell*>(getDisplayCell(column));
    isComplete &= head->populate(data->add_columns());
    getDefaultCell(column)->markGuiClean();
  }
  data->set_tooltipdelay(ToolTipDelay);
  data->set_isresizable(true);
  data->set_ishidden(!KVXEViewer::sees(getVisibility()) || getTable()->getIsHeaderHidden());
  return isComplete;
}

bool KVXERow::populate(GenericTreeTableRowData* data) {
  if (!data) return false;
  bool isComplete = true;
  data->mutable_cells()->Reserve(static_cast<int>(getChildCount()));
  for (KVXECell* cell : m_cells) isComplete &= cell->populate(data->add_cells());
  data->set_index(static_cast<int>(m_index));
  data->set_isexpanded(false);
  return isComplete;
}

bool KVXETable::populate(GenericTreeTableData* data) {
  if (!data) return false;
  data->set_tag(getTableTitle()->getTag(KVXEEnums::TitleType::SW));
  data->set_title(kvxe::withVisibility(getTableTitle()->getDisplayTag(false), m_visibility));
  data->set_tableindex(static_cast<int>(m_index));
  data->set_headerheight(HeaderHeight);
  data->set_issortable(false);
  data->set_isfilterable(false);
  data->set_istree(false);
  data->set_isgridvisible(true);
  data->set_hastableeditingfeatures(m_hasTableEditingFeatures);
  data->set_isinternal(m_visibility != Visibility::EXTERNAL);
  data->set_showrowids(m_showRowIds);
  data->set_ischartonly(m_isChartOnly);

  GenericTreeTableModelData* model = data->mutable_model();
  bool isComplete = true;
  if (KVXEHeaderRow* header = getHeaderRow()) isComplete &= header->populate(model->mutable_header());
  for (unsigned int i = 1; i < getRowCount(); ++i)
    if (m_rows[i]->hasPlaceOnScreen()) isComplete &= m_rows[i]->populate(model->add_rows());
  if (model->rows_size() > 0)
    data->set_preferredheight(m_hasTableEditingFeatures ? EditableTableHeight : TableHeight);
  clearRowIndices();
  return isComplete;
}

bool KVXETable::populate(GenericTreeTablesData* tables) {
  if (!tables) return false;
  const auto [rows, columns] = getPrintableArea();
  if (rows == 0 || columns == 0) return true;
  GenericTreeTablesTabData* tab = tables->add_tabs();
  if (m_tab) tab->set_tabindex(static_cast<int>(m_tab->getIndex()));
  return populate(tab->mutable_table());
}

void KVXETable::populatePlace(KvxGridComponentData* component) const {
  component->set_gridoptiona(m_gridOptionA);
  if (!m_gridOptionB) component->set_gridoptionb(0);
  if (m_tab) component->set_tabindex(static_cast<int>(m_tab->getIndex()));
  KvxGridComponentConstraintsData* constraints = component->mutable_constraints();
  constraints->set_row(static_cast<int>(m_gridConstraints.row));
  constraints->set_column(static_cast<int>(m_gridConstraints.column));
  constraints->set_rowspan(static_cast<int>(m_gridConstraints.rowSpan));
  constraints->set_columnspan(static_cast<int>(m_gridConstraints.columnSpan));
  if (!m_tabWidgetTitle) return;
  component->set_title(*m_tabWidgetTitle);
  if (m_tab && !m_tab->hasMultipleTablesInTabWidget(*m_tabWidgetTitle)) constraints->set_fillstabwidget(true);
}

bool KVXETable::populate(KvxGridComponentData* component) {
  if (!component) return false;
  populatePlace(component);
  bool isComplete = true;
  switch (getPBGridViewType()) {
    case GridComponentType::DEVICE_SELECTION:
      component->mutable_deviceselection();
      break;
    case GridComponentType::SPACER:
      component->mutable_spacer();
      break;
    default:
      KvxTableChartData* tableChart = component->mutable_tablechart();
      if (m_chartViewKind != 1) isComplete &= populate(tableChart->mutable_tables());
      if (m_chartViewKind != 0 && m_chart) isComplete &= m_chart->populate(tableChart->mutable_chart());
  }
  component->set_severity(getTableSeverity());
  return isComplete;
}

bool KVXETable::populate(KvxImageData*) {
  return false;
}

bool KVXEImage::populate(KvxGridComponentData* component) {
  if (!component) return false;
  populatePlace(component);
  const bool isComplete = populate(component->mutable_image());
  component->set_severity(getTableSeverity());
  return isComplete;
}

bool KVXEImage::populate(KvxImageData* image) {
  if (!image) return false;
  image->set_tag(getImageTitle()->getTag(KVXEEnums::TitleType::SW));
  std::string path;
  if (getFileName(path) && !path.empty()) {
    image->set_path(path);
  } else {
    image->clear_path();
  }
  // Without a size the fields stay unset and read as the default size.
  if (m_width.value_or(0) > 0) {
    image->set_width(static_cast<int>(*m_width));
  } else {
    image->clear_width();
  }
  if (m_height.value_or(0) > 0) {
    image->set_height(static_cast<int>(*m_height));
  } else {
    image->clear_height();
  }
  return true;
}

// Charts.

bool KVXEChart::populate(GenericChart* chart) const {
  if (!chart) return false;
  if (type) chart->set_type(static_cast<GenericChartEnums_ChartType>(*type));
  if (title) chart->set_title(*title);
  if (xAxisTitle) chart->set_xaxistitle(*xAxisTitle);
  if (yAxisTitle) chart->set_yaxistitle(*yAxisTitle);
  if (isLegendVisible) chart->set_islegendvisible(*isLegendVisible);
  if (isRangeLabelsVisible) chart->set_israngelabelsvisible(*isRangeLabelsVisible);
  bool isComplete = true;
  for (const auto& one : m_series) isComplete &= one->populate(chart->add_series());
  return isComplete;
}

bool KVXEChartSeries::populate(GenericChartSeries* series) const {
  if (!series) return false;
  series->set_name(name);
  bool isComplete = true;
  for (const auto& point : points) isComplete &= point->populate(series->add_points());
  return isComplete;
}

bool KVXEChartPoint::populate(GenericChartPoint* point) const {
  if (!point) return false;
  if (xLabel) point->set_xlabel(*xLabel);
  if (x) point->set_x(*x);
  if (y) point->set_y(*y);
  return true;
}

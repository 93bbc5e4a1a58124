#include "ui/arranger.h"

#include <algorithm>

namespace kiv::ui {

namespace {

using Kind = PlanItem::Kind;

bool IsRoom(const PlanItem& item) {
  return item.kind == Kind::Stretch || item.kind == Kind::MarkRoom;
}

/// Whether something of the part is to be seen.
bool IsVisible(const PlanItem& item) {
  switch (item.kind) {
    case Kind::Control:
    case Kind::Group: return item.control->Visible();
    case Kind::Text: return !item.partOf || item.partOf->Visible();
    case Kind::MarkRoom:
    case Kind::Stretch: return true;
    default:
      return std::any_of(item.items.begin(), item.items.end(),
                         [](const PlanItem& part) { return !IsRoom(part) && IsVisible(part); });
  }
}

std::vector<const PlanItem*> VisibleParts(const PlanItem& whole) {
  std::vector<const PlanItem*> parts;
  for (const PlanItem& item : whole.items) {
    if (IsVisible(item)) parts.push_back(&item);
  }
  return parts;
}

int CountLines(const PlanItem& grid) {
  int count = 0;
  for (const PlanItem& cell : grid.items) count = std::max(count, cell.line + 1);
  return count;
}

int CountColumns(const PlanItem& grid) {
  int count = 0;
  for (const PlanItem& cell : grid.items) count = std::max(count, cell.column + cell.columns);
  return count;
}

}  // namespace

Arranger::Arranger(const PagePlan& plan, const PageMeasures& measures)
    : root_(plan.Root()), measures_(measures), metrics_(measures.PageMetrics()) {
  FindLabelWidth(root_);
}

void Arranger::FindLabelWidth(const PlanItem& item) {
  if (!IsVisible(item)) return;
  if (item.formLabel) labelWidth_ = std::max(labelWidth_, measures_.Preferred(item).width);
  for (const PlanItem& part : item.items) FindLabelWidth(part);
}

Size Arranger::LeastSize() const {
  return WithHeight(Across(root_).least, true);
}

Size Arranger::PreferredSize() const {
  return WithHeight(Across(root_).preferred, false);
}

Size Arranger::WithHeight(int width, bool least) const {
  const Extent down = Down(root_, width);
  const int margins = 2 * metrics_.margin;
  return {width + margins, (least ? down.least : down.preferred) + margins};
}

std::vector<Placed> Arranger::Arrange(Size page) const {
  const Size least = LeastSize();
  const int width = std::max(page.width, least.width) - 2 * metrics_.margin;
  const int height = std::max(page.height - 2 * metrics_.margin, Down(root_, width).least);
  std::vector<Placed> placed;
  Place(root_, {metrics_.margin, metrics_.margin, width, height}, placed);
  return placed;
}

Arranger::Extent Arranger::Sum(const Extents& extents, int spacing) {
  Extent sum;
  bool first = true;
  for (const Extent& extent : extents) {
    const int before = extent.isSolid && !first ? spacing : 0;
    first = first && !extent.isSolid;
    sum.least += extent.least + before;
    sum.preferred += extent.preferred + before;
    sum.grows = sum.grows || extent.grows;
  }
  return sum;
}

/// Gives what is left to those that stretch, or else to those that grow; takes what is missing from those
/// that can do with less.
void Arranger::Share(std::vector<Span>& spans, const Extents& extents, int extra) {
  const bool anyStretch =
      std::any_of(extents.begin(), extents.end(), [](const Extent& extent) { return extent.isStretch; });
  const auto weightOf = [&](const Extent& extent) {
    if (extra < 0) return extent.preferred - extent.least;
    return (anyStretch ? extent.isStretch : extent.grows) ? 1 : 0;
  };
  int weights = 0;
  for (const Extent& extent : extents) weights += weightOf(extent);
  if (extra < 0) extra = -std::min(-extra, weights);
  for (std::size_t i = 0; i < extents.size() && weights > 0; ++i) {
    const int weight = weightOf(extents[i]);
    const int part = extra * weight / weights;  // the last one takes the rest
    spans[i].length += part;
    extra -= part;
    weights -= weight;
  }
}

std::vector<Arranger::Span> Arranger::Spread(const Extents& extents, Span room, int spacing) {
  std::vector<Span> spans;
  for (const Extent& extent : extents) spans.push_back({0, extent.preferred});
  Share(spans, extents, room.length - Sum(extents, spacing).preferred);
  bool first = true;
  int place = room.from;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (extents[i].isSolid && !first) place += spacing;
    first = first && !extents[i].isSolid;
    spans[i].from = place;
    place += spans[i].length;
  }
  return spans;
}

Arranger::Extent Arranger::Across(const PlanItem& item) const {
  switch (item.kind) {
    case Kind::Stretch: return {0, 0, item.growsAcross, item.growsAcross, false};
    case Kind::MarkRoom: return {metrics_.markRoom, metrics_.markRoom, false, false, false};
    case Kind::Row: return Sum(AcrossOfItems(item), metrics_.spacingAcross);
    case Kind::Grid: return Sum(ColumnsOf(item), metrics_.spacingAcross);
    case Kind::Control:
    case Kind::Text:
      if (item.formLabel) return {labelWidth_, labelWidth_, false, false, true};
      return {measures_.Least(item).width, measures_.Preferred(item).width, item.growsAcross, false, true};
    case Kind::Column:
    case Kind::Group: break;
  }
  Extent widest;
  for (const Extent& part : AcrossOfItems(item)) {
    widest.least = std::max(widest.least, part.least);
    widest.preferred = std::max(widest.preferred, part.preferred);
  }
  if (item.kind == Kind::Group) {
    const int caption = measures_.Least(item).width;
    widest.least = std::max(widest.least + 2 * metrics_.margin, caption);
    widest.preferred = std::max(widest.preferred + 2 * metrics_.margin, caption);
  }
  widest.grows = item.growsAcross;
  return widest;
}

Arranger::Extent Arranger::Down(const PlanItem& item, int width) const {
  switch (item.kind) {
    case Kind::Stretch: return {0, 0, item.growsDown, item.growsDown, false};
    case Kind::MarkRoom: return {0, 0, false, false, false};
    case Kind::Column: return Sum(DownOfItems(item, width), metrics_.spacingDown);
    case Kind::Group: {
      Extent inner = Sum(DownOfItems(item, width - 2 * metrics_.margin), metrics_.spacingDown);
      const int frame = 2 * metrics_.margin + metrics_.groupTitle;
      inner.least += frame;
      inner.preferred += frame;
      return inner;
    }
    case Kind::Grid: {
      const auto columns = Spread(ColumnsOf(item), {0, width}, metrics_.spacingAcross);
      return Sum(LinesOf(item, columns), metrics_.spacingDown);
    }
    case Kind::Row: {
      Extent highest;
      const auto parts = VisibleParts(item);
      const auto widths = Spread(AcrossOfItems(item), {0, width}, metrics_.spacingAcross);
      for (std::size_t i = 0; i < parts.size(); ++i) {
        const Extent part = Down(*parts[i], widths[i].length);
        highest.least = std::max(highest.least, part.least);
        highest.preferred = std::max(highest.preferred, part.preferred);
      }
      highest.grows = item.growsDown;
      return highest;
    }
    case Kind::Control:
    case Kind::Text: break;
  }
  if (item.wraps) {
    const int height = measures_.HeightFor(item, width);
    return {height, height, false, false, true};
  }
  return {measures_.Least(item).height, measures_.Preferred(item).height, item.growsDown, false, true};
}

Arranger::Extents Arranger::AcrossOfItems(const PlanItem& row) const {
  Extents extents;
  for (const PlanItem* part : VisibleParts(row)) extents.push_back(Across(*part));
  return extents;
}

Arranger::Extents Arranger::DownOfItems(const PlanItem& column, int width) const {
  Extents extents;
  for (const PlanItem* part : VisibleParts(column)) extents.push_back(Down(*part, width));
  return extents;
}

/// What covers several columns widens the one that grows.
Arranger::Extents Arranger::ColumnsOf(const PlanItem& grid) const {
  Extents columns(static_cast<std::size_t>(CountColumns(grid)), Extent{0, 0, false, false, false});
  if (columns.empty()) return columns;
  Extent& growing = columns[static_cast<std::size_t>(grid.growingColumn)];
  growing.grows = true;
  const auto parts = VisibleParts(grid);
  for (const PlanItem* cell : parts) {
    if (cell->columns > 1) continue;
    Extent& column = columns[static_cast<std::size_t>(cell->column)];
    const Extent across = Across(*cell);
    column.least = std::max(column.least, across.least);
    column.preferred = std::max(column.preferred, across.preferred);
    column.isSolid = true;
  }
  for (const PlanItem* cell : parts) {
    if (cell->columns == 1) continue;
    const Extent across = Across(*cell);
    const Extent all = Sum(columns, metrics_.spacingAcross);
    growing.least += std::max(0, across.least - all.least);
    growing.preferred += std::max(0, across.preferred - all.preferred);
    growing.isSolid = true;
  }
  return columns;
}

Arranger::Extents Arranger::LinesOf(const PlanItem& grid, const std::vector<Span>& columns) const {
  Extents lines(static_cast<std::size_t>(CountLines(grid)), Extent{0, 0, false, false, false});
  for (const PlanItem* cell : VisibleParts(grid)) {
    const Span& first = columns[static_cast<std::size_t>(cell->column)];
    const Span& last = columns[static_cast<std::size_t>(cell->column + cell->columns - 1)];
    const Extent down = Down(*cell, last.from + last.length - first.from);
    Extent& line = lines[static_cast<std::size_t>(cell->line)];
    line.least = std::max(line.least, down.least);
    line.preferred = std::max(line.preferred, down.preferred);
    line.grows = line.grows || down.grows;
    line.isSolid = true;
  }
  return lines;
}

void Arranger::Place(const PlanItem& item, const Rect& room, std::vector<Placed>& placed) const {
  const auto parts = VisibleParts(item);
  switch (item.kind) {
    case Kind::Stretch: return;
    case Kind::Grid: return PlaceGrid(item, room, placed);
    case Kind::Control:
    case Kind::Text:
    case Kind::MarkRoom: return PlaceLeaf(item, room, placed);
    case Kind::Row: {
      const auto spans = Spread(AcrossOfItems(item), {room.x, room.width}, metrics_.spacingAcross);
      for (std::size_t i = 0; i < parts.size(); ++i) {
        Place(*parts[i], {spans[i].from, room.y, spans[i].length, room.height}, placed);
      }
      return;
    }
    case Kind::Column:
    case Kind::Group: break;
  }
  Rect inner = room;
  if (item.kind == Kind::Group) {
    placed.push_back({&item, room});
    const int top = metrics_.margin + metrics_.groupTitle;
    inner = {room.x + metrics_.margin, room.y + top, room.width - 2 * metrics_.margin,
             room.height - top - metrics_.margin};
  }
  const auto spans = Spread(DownOfItems(item, inner.width), {inner.y, inner.height}, metrics_.spacingDown);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Place(*parts[i], {inner.x, spans[i].from, inner.width, spans[i].length}, placed);
  }
}

void Arranger::PlaceGrid(const PlanItem& grid, const Rect& room, std::vector<Placed>& placed) const {
  const auto columns = Spread(ColumnsOf(grid), {room.x, room.width}, metrics_.spacingAcross);
  const auto lines = Spread(LinesOf(grid, columns), {room.y, room.height}, metrics_.spacingDown);
  for (const PlanItem* cell : VisibleParts(grid)) {
    const Span& first = columns[static_cast<std::size_t>(cell->column)];
    const Span& last = columns[static_cast<std::size_t>(cell->column + cell->columns - 1)];
    const Span& line = lines[static_cast<std::size_t>(cell->line)];
    Place(*cell, {first.from, line.from, last.from + last.length - first.from, line.length}, placed);
  }
}

/// What does not grow keeps its height, in the middle of its line.
void Arranger::PlaceLeaf(const PlanItem& item, const Rect& room, std::vector<Placed>& placed) const {
  Rect place = room;
  if (item.kind != Kind::MarkRoom && !item.growsDown && !item.wraps) {
    place.height = std::min(room.height, measures_.Preferred(item).height);
    if (!item.alignTop) place.y += (room.height - place.height) / 2;
  }
  placed.push_back({&item, place});
}

}  // namespace kiv::ui

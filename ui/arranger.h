#pragma once

#include <vector>

#include "ui/page_plan.h"

namespace kiv::ui {

struct Size {
  int width = 0;
  int height = 0;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  int Right() const { return x + width; }
  int Bottom() const { return y + height; }
};

/// What a view knows about its platform: how large things want to be, in its own units.
class PageMeasures {
 public:
  virtual ~PageMeasures() = default;

  /// The smallest size of a control or text that cuts nothing off, and the size that it likes best.
  virtual Size Least(const PlanItem& item) const = 0;
  virtual Size Preferred(const PlanItem& item) const = 0;
  /// Height of a text that wraps at a width.
  virtual int HeightFor(const PlanItem& text, int width) const = 0;

  struct Metrics {
    int spacingAcross = 6;
    int spacingDown = 6;
    int margin = 9;      ///< around a page, and inside a group
    int groupTitle = 0;  ///< room for the caption of a group above its items
    int markRoom = 0;    ///< width of the room for a mark
  };
  virtual Metrics PageMetrics() const = 0;
};

/// A part of the plan in its place: a control, a group, a text or the room for a mark.
struct Placed {
  const PlanItem* item = nullptr;
  Rect place;
};

/// Gives every part of a page its rectangle, for toolkits that have no layout engine. Hidden parts take no
/// room. The labels of all forms share one width; texts that wrap get the height that their width needs; what
/// can grow takes the room that is left, shared alike.
///
/// It is made anew whenever a caption, a font or a size may have changed, and refers to plan and measures.
class Arranger {
 public:
  Arranger(const PagePlan& plan, const PageMeasures& measures);

  /// What the page needs to cut nothing off, and what it likes best.
  Size LeastSize() const;
  Size PreferredSize() const;
  /// A page that is smaller than its least size is arranged in that size, for a view that scrolls.
  std::vector<Placed> Arrange(Size page) const;

 private:
  /// How far a part reaches in one direction.
  struct Extent {
    int least = 0;
    int preferred = 0;
    bool grows = false;
    bool isStretch = false;
    bool isSolid = true;  ///< has spacing around it
  };
  using Extents = std::vector<Extent>;
  /// Where a part begins, and how long it is.
  struct Span {
    int from = 0;
    int length = 0;
  };

  static Extent Sum(const Extents& extents, int spacing);
  static std::vector<Span> Spread(const Extents& extents, Span room, int spacing);
  static void Share(std::vector<Span>& spans, const Extents& extents, int extra);

  void FindLabelWidth(const PlanItem& item);
  Extent Across(const PlanItem& item) const;
  Extent Down(const PlanItem& item, int width) const;  ///< of a part that is so wide
  Extents AcrossOfItems(const PlanItem& row) const;
  Extents DownOfItems(const PlanItem& column, int width) const;
  Extents ColumnsOf(const PlanItem& grid) const;
  Extents LinesOf(const PlanItem& grid, const std::vector<Span>& columns) const;
  Size WithHeight(int width, bool least) const;

  void Place(const PlanItem& item, const Rect& room, std::vector<Placed>& placed) const;
  void PlaceGrid(const PlanItem& grid, const Rect& room, std::vector<Placed>& placed) const;
  void PlaceLeaf(const PlanItem& item, const Rect& room, std::vector<Placed>& placed) const;

  const PlanItem& root_;
  const PageMeasures& measures_;
  const PageMeasures::Metrics metrics_;
  int labelWidth_ = 0;
};

}  // namespace kiv::ui

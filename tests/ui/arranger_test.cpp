#include "ui/arranger.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "editor/study_tabs.h"
#include "support/fake_host.h"
#include "support/test_page.h"
#include "ui/caption.h"
#include "ui/control_traits.h"
#include "ui/control_visitor.h"

namespace kiv::ui {
namespace {

/// A platform whose characters are all alike.
class PlainMeasures : public PageMeasures {
 public:
  Size Least(const PlanItem& item) const override {
    if (IsText(item)) return {item.wraps ? std::min(TextWidth(item), kWrapped) : TextWidth(item), kLine};
    const bool isTall = item.growsDown || TraitsOf(*item.control).role == Role::List;
    return isTall ? Size{120, 80} : Size{24 + TextWidth(item), 22};
  }
  Size Preferred(const PlanItem& item) const override {
    const Size least = Least(item);
    return {IsText(item) ? TextWidth(item) : 2 * least.width, least.height};
  }
  int HeightFor(const PlanItem& text, int width) const override {
    return kLine * std::max(1, (TextWidth(text) + width - 1) / std::max(width, 1));
  }
  Metrics PageMetrics() const override {
    return {.spacingAcross = 6, .spacingDown = 5, .margin = 9, .groupTitle = 12, .markRoom = 24};
  }

 private:
  static constexpr int kCharacter = 7;
  static constexpr int kLine = 15;
  static constexpr int kWrapped = 20 * kCharacter;

  static bool IsText(const PlanItem& item) {
    return !item.control || TraitsOf(*item.control).role == Role::Label;
  }
  static int TextWidth(const PlanItem& item) {
    const std::string* caption = item.control ? TraitsOf(*item.control).caption : &item.text;
    return caption ? kCharacter * static_cast<int>(PlainCaption(*caption).size()) : 0;
  }
};

bool Overlap(const Rect& a, const Rect& b) {
  return a.x < b.Right() && b.x < a.Right() && a.y < b.Bottom() && b.y < a.Bottom();
}

bool Contains(const Rect& outer, const Rect& inner) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.Right() <= outer.Right() &&
         inner.Bottom() <= outer.Bottom();
}

/// What a plan places inside an item, itself included.
void CollectInside(const PlanItem& item, std::vector<const PlanItem*>& inside) {
  inside.push_back(&item);
  for (const PlanItem& part : item.items) CollectInside(part, inside);
}

void ExpectSound(const Arranger& arranger, const PagePlan& plan, Size page) {
  const std::vector<Placed> placed = arranger.Arrange(page);
  const Size least = arranger.LeastSize();
  const Rect whole = {0, 0, std::max(page.width, least.width), std::max(page.height, least.height)};
  const PlainMeasures measures;
  int labelWidth = 0;
  const auto& parts = plan.Root().items;
  const bool grows = parts.back().kind != PlanItem::Kind::Stretch;
  int bottom = 0;
  for (const Placed& one : placed) {
    const PlanItem& item = *one.item;
    EXPECT_TRUE(Contains(whole, one.place)) << one.place.Right() << ' ' << one.place.Bottom();
    bottom = std::max(bottom, one.place.Bottom());
    if (item.formLabel) {
      if (!labelWidth) labelWidth = one.place.width;
      EXPECT_EQ(one.place.width, labelWidth);
    }
    if (item.kind == PlanItem::Kind::Group) {
      std::vector<const PlanItem*> inside;
      CollectInside(item, inside);
      for (const Placed& other : placed) {
        const bool isInside = std::find(inside.begin(), inside.end(), other.item) != inside.end();
        EXPECT_EQ(Overlap(one.place, other.place) && !Contains(other.place, one.place),
                  isInside && other.item != &item);
        EXPECT_TRUE(!isInside || Contains(one.place, other.place));
      }
      continue;
    }
    if (item.kind == PlanItem::Kind::MarkRoom) continue;
    EXPECT_GE(one.place.width, measures.Least(item).width) << item.text;
    EXPECT_GE(one.place.height,
              item.wraps ? measures.HeightFor(item, one.place.width) : measures.Least(item).height);
    for (const Placed& other : placed) {
      const bool isLeaf = &other != &one && other.item->kind != PlanItem::Kind::Group;
      EXPECT_FALSE(isLeaf && Overlap(one.place, other.place)) << item.text << other.item->text;
    }
  }
  EXPECT_TRUE(!grows || bottom == whole.height - measures.PageMetrics().margin);
}

TEST(Arranger, PlacesEveryPageWithoutOverlap) {
  const test::FakeHost host;
  const PlainMeasures measures;
  std::size_t pages = 0;
  for (const StudyKind& kind : StudyKinds()) {
    for (const auto& tab : CreateTabs(kind)) {
      SCOPED_TRACE(kind.name + " " + tab->Title());
      const PagePlan plan(tab->Layout());
      const Arranger arranger(plan, measures);
      const Size least = arranger.LeastSize();
      const Size preferred = arranger.PreferredSize();
      EXPECT_GE(preferred.width, least.width);
      for (const Size page : {least, preferred, Size{800, 600}, Size{1600, 1000}, Size{100, 100}}) {
        ExpectSound(arranger, plan, page);
      }
      ++pages;
    }
  }
  EXPECT_GE(pages, 11U);
}

TEST(Arranger, HiddenPartsTakeNoRoomAndTextsWrap) {
  struct Page : test::TestPage {
    TextBox first{this, "first"};
    TextBox second{this, "second"};
    CheckBox check{this, "check"};
  } page;
  const std::string words(60, 'w');
  const PagePlan plan(Column(
      {Form({Field("&One:", {Single(page.first), Text("m")}), Field("&Longer:", {Single(page.second)})}),
       Single(page.check), Text(words)}));
  const PlainMeasures measures;
  const int whole = Arranger(plan, measures).LeastSize().height;
  page.second.SetVisible(false);
  const Arranger arranger(plan, measures);
  EXPECT_EQ(arranger.LeastSize().height, whole - 22 - 5);
  for (const Placed& one : arranger.Arrange({300, 400})) {
    EXPECT_FALSE(one.item->kind == PlanItem::Kind::Control && one.item->control == &page.second);
    EXPECT_TRUE(!one.item->formLabel || one.place.width == 4 * 7);  // the longer label is hidden too
    EXPECT_TRUE(one.item->text != words || one.place.height == 2 * 15);
  }
}

}  // namespace
}  // namespace kiv::ui

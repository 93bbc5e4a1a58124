#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTextDocument>
#include <map>

#include "qt/sample_page.h"

namespace kiv {
namespace {

class Marks : public test::SampleView {
 protected:
  /// The visible icons with their tool tips.
  std::map<std::string, const QLabel*> Icons() {
    std::map<std::string, const QLabel*> icons;
    for (const QLabel* label : view_->findChildren<QLabel*>()) {
      if (label->isVisible() && !label->pixmap(Qt::ReturnByValue).isNull()) {
        icons.emplace(label->toolTip().toStdString(), label);
      }
    }
    return icons;
  }
  bool Tells(const QString& text) {
    const auto labels = view_->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [&text](const QLabel* label) { return label->isVisible() && label->text() == text; });
  }
  std::vector<QRect> Geometries() {
    QApplication::processEvents();
    std::vector<QRect> all;
    for (const QWidget* widget : view_->findChildren<QWidget*>()) {
      if (!widget->objectName().isEmpty()) all.push_back(widget->geometry());
    }
    return all;
  }
};

TEST_F(Marks, StandBesideTheirControlsAndMoveNothing) {
  const auto before = Geometries();
  view_->ShowMarks({{&page_->txtName, "no\r\nname"}, {&page_->chkUse, "use it"}, {&page_->txtName, "again"}});
  EXPECT_EQ(Geometries(), before);
  const auto icons = Icons();
  ASSERT_EQ(icons.size(), 2U);
  const auto& field = The<QLineEdit>(page_->txtName);
  const QLabel* icon = icons.at("no\r\nname");
  EXPECT_EQ(icon->parentWidget(), field.parentWidget());
  EXPECT_GE(icon->x(), field.geometry().right());
  EXPECT_LT(icon->geometry().right(), view_->WidgetOf(page_->cmdGo)->x() + 1);
  EXPECT_LE(icon->pixmap(Qt::ReturnByValue).deviceIndependentSize().width(), icon->width());
  EXPECT_EQ(field.toolTip(), "no\r\nname");
  EXPECT_EQ(field.accessibleDescription(), "no\r\nname");
  EXPECT_TRUE(Tells("no name (and 2 more problems)"));

  view_->resize(view_->width() + 100, view_->height());
  QApplication::processEvents();
  EXPECT_GE(icon->x(), field.geometry().right());
}

TEST_F(Marks, OthersReplaceThemAndNoneClearsThem) {
  view_->ShowMarks({{&page_->txtName, "first"}, {&page_->txtTo, "second"}});
  EXPECT_TRUE(Tells("first (and one more problem)"));
  view_->ShowMarks({{&page_->txtTo, "if <b>x</b>"}});
  EXPECT_EQ(Icons().size(), 1U);
  EXPECT_TRUE(Tells("if <b>x</b>"));
  QTextDocument toolTip;
  toolTip.setHtml(The<QLineEdit>(page_->txtTo).toolTip());
  EXPECT_EQ(toolTip.toPlainText(), "if <b>x</b>");
  EXPECT_EQ(The<QLineEdit>(page_->txtName).toolTip(), "");

  page_->fraOuter.SetVisible(false);
  EXPECT_TRUE(Icons().empty());
  page_->fraOuter.SetVisible(true);
  EXPECT_EQ(Icons().size(), 1U);

  view_->ShowMarks({});
  EXPECT_TRUE(Icons().empty());
  EXPECT_FALSE(Tells("if <b>x</b>"));
  EXPECT_EQ(The<QLineEdit>(page_->txtTo).accessibleDescription(), "");
}

TEST_F(Marks, AHiddenControlHasNoIcon) {
  view_->ShowMarks({{&page_->txtFrom, "low"}});
  page_->txtFrom.SetVisible(false);
  EXPECT_TRUE(Icons().empty());
  page_->txtFrom.SetVisible(true);
  EXPECT_EQ(Icons().size(), 1U);
}

TEST_F(Marks, AControlElsewhereIsToldBelowThePage) {
  const ui::TextBox elsewhere(page_.get(), "txtElsewhere");
  view_->ShowMarks({{&elsewhere, "missing"}, {&page_->cmdGo, "press me"}});
  EXPECT_TRUE(Tells("missing (and one more problem)"));
  EXPECT_EQ(view_->WidgetOf(page_->cmdGo)->toolTip(), "press me");
}

}  // namespace
}  // namespace kiv

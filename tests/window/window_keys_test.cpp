// The window worked with the keyboard alone.

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QRegularExpression>
#include <map>

#include "client/window/editor_view.h"
#include "core/study_kinds.h"
#include "plm/cdma_tab.h"
#include "qt/page_view.h"
#include "support/window_fixture.h"

namespace kiv::client {
namespace {

TEST_F(Window, ModesAreChosenWithTheKeyboard) {
  Open();
  window_->NewStudy("PLM Study");
  user_.ClickTab("tabs", 1);
  const auto& cdma = dynamic_cast<const XKivPlmCdma&>(*window_->CurrentEditor()->Session().Tabs()[1]);
  user_.Press(Qt::Key_8, Qt::AltModifier);
  user_.Wait(200);  // the box is seen to go down and up
  EXPECT_EQ(cdma.CurrentMode(), "Mode   8 FER2");
  user_.Find("obModeSelector(1)")->setFocus();
  user_.MessageDuring([this] { user_.Press(Qt::Key_Down); });
  EXPECT_EQ(FocusName(), "txtCarrier");
  EXPECT_TRUE(The<QRadioButton>("obModeSelector(1)").isChecked());
  EXPECT_FALSE(The<QRadioButton>("obModeSelector(2)").isChecked());
  user_.Type("x12");
  user_.Choose("cboServiceOption", "(19R4) 3G1X Data SCH 19.2 kbps RC4");
  user_.Find("obModeSelector(1)")->setFocus();
  user_.Press(Qt::Key_Down);
  EXPECT_EQ(cdma.CurrentMode(), "Mode   9 CPLM1");
  EXPECT_EQ(FocusName(), "obModeSelector(2)");

  user_.ClickTab("tabs", 2);
  user_.Find("obModeSelector(0)")->setFocus();
  user_.Press(Qt::Key_Down);
  user_.Press(Qt::Key_Down);  // the panels that come and go do not take the focus away
  EXPECT_EQ(FocusName(), "obModeSelector(2)");
  user_.Click("obModeSelector(5)");
  EXPECT_EQ(FocusName(), "cboMethod");
}

/// The mnemonic letters that answer at the same time.
class Mnemonics {
 public:
  void Take(const QString& text) {
    static const QRegularExpression mnemonic("&([^&])");
    const auto match = mnemonic.match(text);
    if (!match.hasMatch()) return;
    const QChar letter = match.captured(1).at(0).toUpper();
    EXPECT_FALSE(taken_.contains(letter)) << text.toStdString() << " and " << taken_[letter].toStdString();
    taken_[letter] = text;
  }
  /// Takes what is visible of a window.
  void TakeAll(const MainWindow& window) {
    for (const auto* action : window.menuBar()->actions()) Take(action->text());
    for (const auto* widget : window.findChildren<QWidget*>()) {
      const auto* label = qobject_cast<const QLabel*>(widget);
      const bool names = label ? label->buddy() != nullptr : widget->inherits("QAbstractButton");
      if (!widget->isVisible()) continue;
      if (names) Take(widget->property("text").toString());
      if (widget->inherits("QGroupBox")) Take(widget->property("title").toString());
    }
  }
  std::size_t Count() const { return taken_.size(); }

 private:
  std::map<QChar, QString> taken_;
};

TEST_F(Window, EveryMnemonicOfAPageIsUnique) {
  for (const std::string& unusable : {folder_.File("none.db"), folder_.Path()}) {
    window_->OpenDatabase(unusable, Program::WhenMissing::Refuse);
    Mnemonics().TakeAll(*window_);
  }
  Open();
  Mnemonics().TakeAll(*window_);
  for (const auto* menu : window_->menuBar()->actions()) {
    Mnemonics letters;
    for (const auto* action : menu->menu()->actions()) letters.Take(action->text());
  }
  for (const StudyKind& kind : StudyKinds()) {
    const EditorView* editor = window_->NewStudy(kind.name);
    auto& tabs = *editor->findChild<QTabWidget*>("tabs");
    for (int page = 0; page < tabs.count(); ++page) {
      tabs.setCurrentIndex(page);
      SCOPED_TRACE(tabs.tabText(page).toStdString());
      Mnemonics letters;
      letters.TakeAll(*window_);
      EXPECT_GT(letters.Count(), 8U);
      for (QAbstractButton* mode : editor->Pages()[std::size_t(page)]->findChildren<QRadioButton*>(
               QRegularExpression("^obModeSelector"))) {
        mode->click();
        Mnemonics().TakeAll(*window_);
      }
    }
  }
  StoreStudy();
  Editors().setCurrentIndex(0);
  Mnemonics list;
  list.TakeAll(*window_);
  EXPECT_GT(list.Count(), 3U);
}

}  // namespace
}  // namespace kiv::client

#include <QComboBox>
#include <QWheelEvent>
#include <algorithm>

#include "qt/control_views.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

/// Even a list that is still empty has room for a short entry.
constexpr int kLeastCharacters = 10;

class ComboBoxView final : public QComboBox, public ControlView {
 public:
  ComboBoxView(ui::ComboBox& list, QWidget* parent)
      : QComboBox(parent),
        ControlView(list, *this),
        list_(list),
        changed_(ShowValueOn(list.Changed)),
        itemsChanged_(list.ItemsChanged.Connect([this] {
          // From now on the width follows the items; for those of the start the usual policy is enough, and
          // it does not make the pop-up list before somebody opens it.
          setSizeAdjustPolicy(AdjustToContents);
          ShowItems();
        })) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    ShowAppearance();
    ShowItems();
    connect(this, &QComboBox::activated, this,
            [this](int index) { Act([this, index] { list_.Select(index); }); });
  }

  void ShowAppearance() override {
    ControlView::ShowAppearance();
    const QString hint = ToQt(list_.Hint());
    setPlaceholderText(hint);
    setMinimumContentsLength(std::max(kLeastCharacters, static_cast<int>(hint.size())));
  }

 protected:
  void ShowValue() override { setCurrentIndex(list_.ListIndex()); }

  /// Turning the wheel to scroll the page must not change a list that happens to be under the pointer.
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }

 private:
  void ShowItems() {
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(list_.Items().size()));
    for (const ui::ListItem& item : list_.Items()) texts.push_back(ToQt(item.text));
    clear();
    addItems(texts);
    ShowValue();
  }

  ui::ComboBox& list_;
  ScopedConnection changed_;
  ScopedConnection itemsChanged_;
};

}  // namespace

ControlView* MakeView(ui::ComboBox& control, QWidget* parent) {
  return new ComboBoxView(control, parent);
}

}  // namespace kiv::qt

#include <QComboBox>
#include <QWheelEvent>

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
        itemsChanged_(list.ItemsChanged.Connect([this] { ShowItems(); })) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setSizeAdjustPolicy(AdjustToContents);
    setMinimumContentsLength(kLeastCharacters);
    ShowAppearance();
    ShowItems();
    connect(this, &QComboBox::activated, this,
            [this](int index) { Act([this, index] { list_.Select(index); }); });
  }

  void ShowAppearance() override {
    ControlView::ShowAppearance();
    setPlaceholderText(ToQt(list_.Hint()));
  }
  bool HoldsValue() const override { return true; }

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

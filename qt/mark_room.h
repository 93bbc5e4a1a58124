#pragma once

#include <QPointer>
#include <QSpacerItem>

class QLabel;
class QString;
class QWidget;

namespace kiv::qt {

/// The room beside a control for the icon of its mark. It is always there, so that nothing moves when a mark
/// comes or goes; the icon is made by the first mark.
class MarkRoom : public QSpacerItem {
 public:
  /// `parent` is the widget that is being laid out.
  explicit MarkRoom(QWidget* parent);

  /// An empty message takes the icon away.
  void Show(const QString& message);

  void setGeometry(const QRect& rectangle) override;

 private:
  QWidget* parent_;
  QPointer<QLabel> icon_;
};

}  // namespace kiv::qt

#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace kiv::client {

/// What the window shows instead of an empty list: what is the matter, and buttons for what to do about it.
class StartPage : public QWidget {
 public:
  struct Choice {
    QString caption;
    std::function<void()> action;
  };

  explicit StartPage(QWidget* parent = nullptr);

  void Show(const QString& heading, const QString& text, const std::vector<Choice>& choices);

 private:
  QLabel* heading_;
  QLabel* text_;
  QVBoxLayout* buttons_;
};

}  // namespace kiv::client

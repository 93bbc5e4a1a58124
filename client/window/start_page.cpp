#include "client/window/start_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace kiv::client {

StartPage::StartPage(QWidget* parent)
    : QWidget(parent), heading_(new QLabel(this)), text_(new QLabel(this)), buttons_(new QVBoxLayout) {
  QFont font = heading_->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  heading_->setFont(font);
  text_->setWordWrap(true);
  text_->setTextFormat(Qt::PlainText);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text_->setObjectName(QStringLiteral("startText"));
  text_->setMinimumWidth(text_->fontMetrics().averageCharWidth() * 64);

  auto* column = new QVBoxLayout;
  column->addStretch(1);
  column->addWidget(heading_);
  column->addSpacing(heading_->fontMetrics().height() / 2);
  column->addWidget(text_);
  column->addSpacing(heading_->fontMetrics().height() / 2);
  column->addLayout(buttons_);
  column->addStretch(2);
  auto* row = new QHBoxLayout(this);
  row->addStretch(1);
  row->addLayout(column);
  row->addStretch(1);
}

void StartPage::Show(const QString& heading, const QString& text, const std::vector<Choice>& choices) {
  heading_->setText(heading);
  text_->setText(text);
  while (QLayoutItem* item = buttons_->takeAt(0)) {
    if (item->widget()) item->widget()->deleteLater();
    delete item;
  }
  for (const Choice& choice : choices) {
    auto* button = new QPushButton(choice.caption, this);
    connect(button, &QPushButton::clicked, this, choice.action);
    buttons_->addWidget(button, 0, Qt::AlignLeft);
  }
}

}  // namespace kiv::client

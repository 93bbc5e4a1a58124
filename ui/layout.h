#pragma once

#include <string>
#include <vector>

#include "ui/label.h"

/// How a page is arranged, told without any toolkit: what stands beside and below what, and which text names
/// which control. Each view lays itself out from this tree in its platform's metrics. The order of the tree
/// is the order in which the Tab key walks the controls.
namespace kiv::ui {

struct LayoutItem {
  enum class Kind {
    Column,  ///< items below each other
    Row,     ///< items beside each other
    Form,    ///< fields below each other, their labels and their controls aligned
    Grid,    ///< rows below each other, their items aligned; the first item names its row
    Group,   ///< a frame around its items, which are stacked as in a column
    Field,   ///< a label in front of its items, which are arranged as in a row; the label is a fixed text or
             ///< a Label control whose look the tab changes
    Single,  ///< one control
    Text,    ///< a fixed text
    Stretch  ///< takes the room that the others leave
  };

  Kind kind = Kind::Column;
  std::string text;            ///< label of a field (`&` before its mnemonic), or the fixed text
  Control* control = nullptr;  ///< the single control, the group's frame, or the field's Label
  std::vector<LayoutItem> items;
};

inline LayoutItem Column(std::vector<LayoutItem> items) {
  return {LayoutItem::Kind::Column, {}, nullptr, std::move(items)};
}
inline LayoutItem Row(std::vector<LayoutItem> items) {
  return {LayoutItem::Kind::Row, {}, nullptr, std::move(items)};
}
inline LayoutItem Form(std::vector<LayoutItem> fields) {
  return {LayoutItem::Kind::Form, {}, nullptr, std::move(fields)};
}
inline LayoutItem Grid(std::vector<LayoutItem> rows) {
  return {LayoutItem::Kind::Grid, {}, nullptr, std::move(rows)};
}
inline LayoutItem Group(Frame& frame, std::vector<LayoutItem> items) {
  return {LayoutItem::Kind::Group, {}, &frame, std::move(items)};
}
/// The label's mnemonic moves the focus to the first control.
inline LayoutItem Field(std::string label, std::vector<LayoutItem> items) {
  return {LayoutItem::Kind::Field, std::move(label), nullptr, std::move(items)};
}
inline LayoutItem Field(Label& label, std::vector<LayoutItem> items) {
  return {LayoutItem::Kind::Field, {}, &label, std::move(items)};
}
inline LayoutItem Single(Control& control) {
  return {LayoutItem::Kind::Single, {}, &control, {}};
}
inline LayoutItem Text(std::string text) {
  return {LayoutItem::Kind::Text, std::move(text), nullptr, {}};
}
inline LayoutItem Stretch() {
  return {LayoutItem::Kind::Stretch, {}, nullptr, {}};
}

}  // namespace kiv::ui

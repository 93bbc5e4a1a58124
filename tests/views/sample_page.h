#pragma once

#include "views/view_test.h"

namespace kiv::test {

/// Every kind of control but lists, in groups inside groups, and rows of a box and an option each.
struct SamplePage : TestPage {
  SamplePage() {
    lblArea.SetCaption("&Area code:");
    fraOuter.SetCaption("Outer");
    fraInner.SetCaption("Inner");
    chkUse.SetCaption("&Use it");
    cmdGo.SetCaption("&Go...");
    cboKind.SetItems({{"Small", 1}, {"Large", 2}});
    txtCount.SetKeyFilter([this](std::int16_t& key) {
      ++filtered;
      if (key != ui::kBackspaceKey && (key < '0' || key > '9')) key = 0;
    });
    txtLines.SetKeyFilter([](std::int16_t& key) { key = key == 'x' ? std::int16_t{0} : key; });
    txtLines.SetPasteFilter([](std::string_view text) {
      std::string lines(text);
      for (char& c : lines) c = c == ',' ? '\n' : c;
      return lines;
    });
    for (std::size_t i = 0; i < 3; ++i) {
      chkRow[i].SetCaption("Row" + std::string(2 * i, ' ') + " &" + std::to_string(i));
      optRow[i].SetCaption("Details");
      lblRow[i].SetCaption("note");
    }
  }

  ui::LayoutItem Layout() {
    using namespace ui;
    std::vector<LayoutItem> rows;
    for (std::size_t i = 0; i < 3; ++i) {
      rows.push_back(Row({Single(chkRow[i]), Single(optRow[i]), Single(lblRow[i])}));
    }
    return Column(
        {Form({Field("&Name:", {Single(txtName), Single(cmdGo)}),
               Field("Number of c&ounts:", {Single(txtCount), Text("minutes")})}),
         Group(fraOuter,
               {Single(chkUse), Form({Field("&Kind:", {Single(cboKind), Stretch()})}),
                Group(fraInner, {Form({Field(lblArea, {Single(txtArea)}),
                                       Field("&From:", {Single(txtFrom), Text("to"), Single(txtTo)})}),
                                 Row({Single(lblNote), Stretch()})})}),
         Grid(std::move(rows)), Form({Field("&Lines:", {Single(txtLines)})})});
  }

  int filtered = 0;
  ui::TextBox txtName{this, "txtName"};
  ui::Button cmdGo{this, "cmdGo"};
  ui::TextBox txtCount{this, "txtCount"};
  ui::Frame fraOuter{this, "fraOuter"};
  ui::CheckBox chkUse{&fraOuter, "chkUse"};
  ui::ComboBox cboKind{&fraOuter, "cboKind"};
  ui::Frame fraInner{&fraOuter, "fraInner"};
  ui::Label lblArea{&fraInner, "lblArea"};
  ui::TextBox txtArea{&fraInner, "txtName"};  // a namesake in another container
  ui::TextBox txtFrom{&fraInner, "txtFrom"};
  ui::TextBox txtTo{&fraInner, "txtTo"};
  ui::Label lblNote{&fraInner, "lblNote"};
  ui::ControlArray<ui::CheckBox, 3> chkRow{this, "chkRow"};
  ui::OptionGroup<3> optRow{this, "optRow"};
  ui::ControlArray<ui::Label, 3> lblRow{this, "lblRow"};
  ui::TextArea txtLines{this, "txtLines"};
};

using SampleView = ViewTest<SamplePage>;

}  // namespace kiv::test

#pragma once

#include "qt/page_test.h"
#include "ui/control_visitor.h"
#include "ui/layout.h"

namespace kiv::test {

/// A page with every kind of control, in groups inside groups.
struct SamplePage : ui::Container {
  SamplePage() : Container(nullptr, "page") {
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
  }
  void Accept(ui::ControlVisitor&) override {}

  ui::LayoutItem Layout() {
    using namespace ui;
    return Column(
        {Form({Field("&Name:", {Single(txtName), Single(cmdGo)}),
               Field("Number of c&ounts:", {Single(txtCount), Text("minutes")})}),
         Group(fraOuter,
               {Single(chkUse), Form({Field("&Kind:", {Single(cboKind), Stretch()})}),
                Group(fraInner, {Form({Field(lblArea, {Single(txtArea)}),
                                       Field("&From:", {Single(txtFrom), Text("to"), Single(txtTo)})}),
                                 Row({Single(lblNote), Stretch()})})}),
         Stretch()});
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
};

using SampleView = PageTest<SamplePage>;

}  // namespace kiv::test

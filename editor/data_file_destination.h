#pragma once

#include <cstdint>
#include <string>

#include "editor/check_list.h"
#include "ui/buttons.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/text_box.h"

namespace kiv {

/// Where a study's data file goes: a folder, and a name pattern with a fixed extension.
class XKivDataFileDestination : public ui::Container {
 public:
  XKivDataFileDestination(Container* parent, std::string name);

  /// Sets the greatest length of the expanded name (without extension), the extension, the folder and the
  /// name pattern, in this order.
  void Init(std::int32_t maxLength, const std::string& extension, const std::string& path = {},
            const std::string& filename = {});

  const std::string& Path() const { return txtPath.Text(); }
  void SetPath(const std::string& path) { txtPath.SetText(path); }
  /// The name pattern with its extension.
  std::string Filename() const { return txtFilename.Text() + lblExtension.Caption(); }
  /// Shows the name up to its first `.`; the extension stays.
  void SetFilename(const std::string& filename);
  /// A missing leading `.` is added; a text of five or more characters is ignored.
  void SetExtension(const std::string& extension);
  /// 0 until it is set: no name is short enough then.
  void SetMaxLength(std::int32_t maxLength);
  /// The study whose `$ID` the preview shows.
  void SetStudyID(std::int32_t id);

  /// Checks the folder and tells the user what is wrong with it. The text is not used.
  bool IsValidPath(const std::string& hostText = {}) const;
  /// Checks the name pattern and tells the user what is wrong with it. The text is not used.
  bool IsValidFilename(const std::string& hostText = {}) const;
  const CheckList& PathChecks() const { return pathChecks_; }
  const CheckList& FilenameChecks() const { return filenameChecks_; }

  ui::LayoutItem Layout();
  void Accept(ui::ControlVisitor&) override {}  // shown by its layout

  ui::Frame Frame1;
  ui::TextBox txtPath;
  ui::Button cmdBrowse;
  ui::Label Label1;
  ui::TextBox txtFilename;
  ui::Label lblExtension;
  ui::Label lblPreview;  ///< the name as it would be expanded now, and its length

  /// Raised when the folder or the name changed.
  Signal<> Changed;

 private:
  bool TakeOutDots();
  void ShowPreview();

  std::int32_t maxLength_ = 0;
  std::int32_t studyId_ = 0;
  CheckList pathChecks_;
  CheckList filenameChecks_;
};

}  // namespace kiv

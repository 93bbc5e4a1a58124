#pragma once

#include <memory>
#include <string>

#include "base/variant.h"
#include "host/editor_context.h"

namespace kiv {

/// How a host drives one tab of a study editor. Order of calls: LoadState, LoadData, then any number of
/// IsTabValid / SaveData rounds, SaveState.
class IDynaTabControl {
 public:
  virtual ~IDynaTabControl() = default;

  /// Offers a named editor process; true when the tab handled it.
  virtual bool HandleTabProcess(const std::string& processName) = 0;
  /// Checks the input. Shows the first failure to the user, moves the focus there and returns false; the
  /// records stay untouched.
  virtual bool IsTabValid(const std::string& hostText) = 0;
  /// Fills the controls from a study record, which the tab shares from now on. Raises error 13 when the
  /// variant holds no study record and error 91 when the study is of another kind.
  virtual void LoadData(const Variant& study, const std::string& hostText,
                        std::shared_ptr<host::EditorContext> editor) = 0;
  /// Prepares lists and embedded controls.
  virtual void LoadState() = 0;
  /// Copies the controls into the records; called only after every tab was valid.
  virtual void SaveData() = 0;
  /// Keeps the user's values for the next new study; called after the study was stored.
  virtual void SaveState() = 0;
};

}  // namespace kiv

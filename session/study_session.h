#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/signal.h"
#include "editor/tab.h"
#include "store/studies/study_store.h"

namespace kiv::session {

/// One study being edited: its record and its tabs, without any window.
class StudySession {
 public:
  /// Makes the kind's tabs and fills them from the study.
  StudySession(store::StudyStore& store, store::Study study);
  StudySession(const StudySession&) = delete;
  StudySession& operator=(const StudySession&) = delete;
  ~StudySession();

  store::StudyStore& Store() const { return store_; }
  const std::string& Kind() const { return study_.record->AppName(); }
  /// 0 while the study was never stored.
  std::int32_t ID() const { return study_.record->ID(); }
  bool IsNew() const { return study_.record->IsNew(); }
  const std::string& Name() const { return study_.name; }
  void SetName(const std::string& name);
  /// What is wrong with the name, if anything.
  std::optional<std::string> NameProblem() const;
  store::KindData Data() const { return study_.kindData; }
  const CKivStudyData& Record() const { return *study_.record; }
  /// The pages of the editor.
  const std::vector<std::unique_ptr<Tab>>& Tabs() const { return tabs_; }
  /// What stands above the pages; null when nothing does.
  Tab* Header() const { return header_.get(); }
  /// The header and the pages, in the order in which they are checked.
  std::vector<Tab*> HeaderAndTabs() const;

  /// Whether there is input that is not stored.
  bool Modified() const { return modified_; }
  /// There is input from elsewhere that is not stored.
  void NoteInput() { SetModified(true); }
  /// The study with what the pages hold now, as far as a record can hold it.
  store::Study Draft();

  /// Asks every tab in order; the first that refuses tells the user why, and the rest is not asked.
  bool IsValid();
  /// Validates and stores the study. False when a tab refused, which the user has been told. Raises
  /// StoreError for an empty name, and what the store raises; the input stays.
  bool Save(const std::string& user);
  /// The same under a new identifier and name; the session goes on with the copy.
  bool SaveCopy(const std::string& name, const std::string& user);
  /// Tells the tabs that the one of this name is shown now.
  void NotifyTabShown(const std::string& tabName) const;
  /// Takes the stored study again; unsaved input is lost.
  void Reload();

  Signal<> Changed;                        ///< input changed, or was stored
  Signal<const std::string&> TabRequired;  ///< the tab of this name wants to be seen
  Signal<bool> HourglassShown;

 private:
  class Context;

  void LoadTabs();
  void SaveTabs();
  void TakeAsStored();
  void SetModified(bool modified);

  store::StudyStore& store_;
  store::Study study_;
  std::shared_ptr<Context> context_;
  std::unique_ptr<Tab> header_;
  std::vector<std::unique_ptr<Tab>> tabs_;
  bool modified_ = false;
};

}  // namespace kiv::session

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "editor/data_file_destination.h"
#include "editor/file_name_checks.h"
#include "editor/number_checks.h"
#include "editor/tab.h"
#include "host/constants.h"
#include "ui/text_box.h"

/// What the general pages of the study kinds have in common. A kind tells in data how its page differs.
namespace kiv {

/// A number of minutes on a general page.
struct MinutesField {
  std::int32_t low;
  std::int32_t high;
  std::int32_t standard;   ///< what a new study starts with
  const char* remembered;  ///< name of the remembered value
};

/// How a kind names its data files.
struct DataFileNames {
  std::string_view extension;
  std::string_view pattern;  ///< of a new study
  const char* remembered;
};

/// Folder and name pattern of a study's data file.
class DataFileField : public PageField {
 public:
  DataFileField(XKivDataFileDestination& destination, const DataFileNames& names, WhenEmpty whenEmpty,
                Place<std::string> folder, Place<std::string> name, std::function<std::int32_t()> studyId);

  void Prepare() override;
  void ShowNew() override;
  void ShowStored() override;
  void ShowIdentifier() override;
  void Save() override;

 private:
  XKivDataFileDestination& destination_;
  DataFileNames names_;
  Place<std::string> folder_;
  Place<std::string> name_;
  std::function<std::int32_t()> studyId_;
};

/// When a page writes the user's values for the next new study.
enum class Remembers {
  WhenStored,  ///< after the study was stored
  WhenValid    ///< at the end of each check that the page passed
};

/// A general page of the study kind whose sub-record is `Data`.
template <class Data>
class GeneralTabOf : public TabOf<Data> {
 public:
  void SaveState() override {
    if (remembers_ == Remembers::WhenStored) this->RememberValues();
  }

 protected:
  /// `whenEmpty` tells what emptied remembered values do; the folder of the data file is shown as it is.
  GeneralTabOf(std::string name, WhenEmpty whenEmpty, Remembers remembers = Remembers::WhenStored)
      : TabOf<Data>(std::move(name), "General"), whenEmpty_(whenEmpty), remembers_(remembers) {}

  bool Validate() override {
    const bool valid = TabOf<Data>::Validate();
    if (valid && remembers_ == Remembers::WhenValid) this->RememberValues();
    return valid;
  }

  /// How long the study runs. The rules are the kind's own when it gives some.
  PageField& BindDuration(ui::TextBox& box, const MinutesField& minutes) {
    return BindDuration(box, minutes, Range(box, kDuration, minutes));
  }
  PageField& BindDuration(ui::TextBox& box, const MinutesField& minutes, const CheckList& rules) {
    return BindMinutes(box, this->At(&CKivStudyData::Duration, &CKivStudyData::SetDuration), minutes, rules);
  }
  /// How long after its end its data are retrieved.
  PageField& BindRetrieveDelay(ui::TextBox& box, const MinutesField& minutes) {
    return BindMinutes(box, this->At(&CKivStudyData::RetrieveDelay, &CKivStudyData::SetRetrieveDelay),
                       minutes, Range(box, "Retrieve Delay", minutes));
  }
  PageField& BindDataFile(XKivDataFileDestination& destination, const DataFileNames& names) {
    return this->Adopt(
        std::make_unique<DataFileField>(destination, names, whenEmpty_, this->At(&Data::Path, &Data::SetPath),
                                        this->At(&Data::DataFile, &Data::SetDataFile),
                                        [this] { return this->Study()->ID(); }),
        destination.Changed);
  }
  ValueField<std::string>& BindTag(ui::TextBox& box, const char* remembered) {
    return this->Bind(box, this->At(&Data::Tag, &Data::SetTag))
        .Default("data")
        .Remembered(remembered, whenEmpty_);
  }

  static ui::LayoutItem DurationRow(ui::TextBox& box) {
    return ui::Field("Study &duration:", {ui::Single(box), ui::Text("minutes")});
  }
  static ui::LayoutItem RetrieveDelayRow(ui::TextBox& box) {
    return ui::Field("&Retrieve delay:", {ui::Single(box), ui::Text("minutes")});
  }

  /// What messages call the duration.
  static constexpr const char* kDuration = "Study Duration";

 private:
  static CheckList Range(ui::TextBox& box, const char* subject, const MinutesField& minutes) {
    return NumberChecks(box, {subject, minutes.low, minutes.high, "minutes"});
  }
  PageField& BindMinutes(ui::TextBox& box, Place<std::int32_t> place, const MinutesField& minutes,
                         const CheckList& rules) {
    return this->Bind(box, std::move(place))
        .Default(std::to_string(minutes.standard))
        .Remembered(minutes.remembered, whenEmpty_)
        .Checked(rules);
  }

  WhenEmpty whenEmpty_;
  Remembers remembers_;
};

}  // namespace kiv

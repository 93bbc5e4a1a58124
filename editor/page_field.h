#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "editor/check_list.h"

/// The fields of a page. A field is declared once: its control, where its value lives, what a new study
/// starts with, what is remembered of it, its rules. A tab shows and saves its fields by walking their
/// declarations.
namespace kiv {

/// A text that was remembered and is empty may be shown as such or leave the default in place.
enum class WhenEmpty { Show, KeepDefault };

/// What the user need not enter again for the next new study.
struct RememberedValue {
  const char* name;
  std::function<std::string()> read;
  std::function<void(const std::string&)> show;
  WhenEmpty whenEmpty;
};

/// One field as its tab walks it. A kind of field overrides what it has to do at each step.
class PageField {
 public:
  PageField() = default;
  PageField(const PageField&) = delete;
  PageField& operator=(const PageField&) = delete;
  virtual ~PageField() = default;

  /// Makes the control ready for any study.
  virtual void Prepare() {}
  virtual void ShowNew() = 0;
  virtual void ShowStored() = 0;
  /// A new study was stored and has its identifier now.
  virtual void ShowIdentifier() {}
  virtual void Save() = 0;

  /// Which field of the record it shows, and where; neither for what is no stored field of its own.
  std::string_view Field() const { return field_; }
  ui::Control* Control() const { return control_; }
  void Represent(std::string_view field, ui::Control& control) {
    field_ = field;
    control_ = &control;
  }
  /// Whether it was changed since the study was shown.
  bool Touched() const { return touched_; }
  void SetTouched(bool touched) { touched_ = touched; }

  const CheckList& Rules() const { return rules_; }
  const std::vector<RememberedValue>& RememberedValues() const { return remembered_; }
  /// Whether each change of the control is reported to the editor.
  bool ReportsChanges() const { return reportsChanges_; }

 protected:
  CheckList rules_;
  std::vector<RememberedValue> remembered_;
  bool reportsChanges_ = true;

 private:
  std::string_view field_;
  ui::Control* control_ = nullptr;
  bool touched_ = false;
};

/// Where a value lives: read and written in the records that the tab has at that moment.
template <class Value>
struct Place {
  std::function<Value()> read;
  std::function<void(Value)> write;
  std::string_view field = {};  ///< of the record, when the value is one of its stored fields
};

/// How a control shows a value and gives it back.
template <class Value>
struct Face {
  std::function<void(Value)> show;
  std::function<Value()> shown;
};

/// A text or a yes as it is remembered.
inline const std::string& RememberedText(const std::string& text) {
  return text;
}
std::string RememberedText(bool yes);
inline void TakeRemembered(const std::string& text, std::string& value) {
  value = text;
}
void TakeRemembered(const std::string& text, bool& value);

/// A field with one value.
template <class Value>
class ValueField : public PageField {
 public:
  ValueField(Face<Value> face, Place<Value> place) : face_(std::move(face)), place_(std::move(place)) {}

  /// The field of the record that it stores; empty when it stores none of its own.
  std::string_view StoredField() const { return place_.field; }

  /// What a new study starts with; without it with nothing.
  ValueField& Default(Value value) {
    default_ = std::move(value);
    return *this;
  }
  /// The value is proposed to the next new study, under this name.
  ValueField& Remembered(const char* name, WhenEmpty whenEmpty = WhenEmpty::Show) {
    remembered_.push_back({name, [this] { return std::string(RememberedText(face_.shown())); },
                           [this](const std::string& text) {
                             Value value{};
                             TakeRemembered(text, value);
                             face_.show(std::move(value));
                           },
                           whenEmpty});
    return *this;
  }
  /// Rules, which apply while `applies` holds (always when it is empty).
  ValueField& Checked(const CheckList& rules, const CheckList::Condition& applies = {}) {
    rules_.Append(rules, applies);
    return *this;
  }
  /// The tab reports the changes of this field itself.
  ValueField& Unreported() {
    reportsChanges_ = false;
    return *this;
  }

  void ShowNew() override { face_.show(default_); }
  void ShowStored() override { face_.show(place_.read()); }
  void Save() override { place_.write(face_.shown()); }

 private:
  Face<Value> face_;
  Place<Value> place_;
  Value default_{};
};

/// A field of a kind of its own: what it shows and saves is told in full.
class CustomField : public PageField {
 public:
  struct Actions {
    std::function<void()> showNew;
    std::function<void()> showStored;
    std::function<void()> save;
  };

  explicit CustomField(Actions actions) : actions_(std::move(actions)) {}

  CustomField& Checked(const CheckList& rules) {
    rules_.Append(rules);
    return *this;
  }

  void ShowNew() override { actions_.showNew(); }
  void ShowStored() override { actions_.showStored(); }
  void Save() override { actions_.save(); }

 private:
  Actions actions_;
};

/// A whole number as the text of its box. A text that is no number leaves the record as it is.
Place<std::string> AsText(const Place<std::int32_t>& number);
/// One of the texts "Y" and "N" as a yes or a no.
Place<bool> AsYes(const Place<std::string>& choice);

}  // namespace kiv

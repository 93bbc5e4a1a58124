#include "plm/channel_list.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "core/numeric_text.h"
#include "editor/number_checks.h"
#include "plm/limits.h"

namespace kiv {

namespace {

constexpr std::string_view kSeparators = "\n\r\t ,;";
constexpr const char* kNoChannel = "You must enter at least one channel.";

std::vector<std::string_view> Split(std::string_view text) {
  std::vector<std::string_view> entries;
  for (;;) {
    const auto start = text.find_first_not_of(kSeparators);
    if (start == std::string_view::npos) return entries;
    text.remove_prefix(start);
    entries.push_back(text.substr(0, text.find_first_of(kSeparators)));
    text.remove_prefix(entries.back().size());
  }
}

/// A list that came with other separators gets a line for each entry.
std::string EntryALine(std::string_view text) {
  std::string lines;
  for (const std::string_view entry : Split(text)) lines.append(entry).push_back('\n');
  return lines;
}

}  // namespace

XChannelList::XChannelList(Container* parent, std::string name)
    : Container(parent, std::move(name)),
      fraChannels(this, "fraChannels"),
      txtChannelList(&fraChannels, "txtChannelList"),
      lblCount(&fraChannels, "lblCount") {
  fraChannels.SetCaption("C&hannels, one a line");
  txtChannelList.SetPasteFilter(EntryALine);
  checks_.Add(
      txtChannelList, [this] { return FirstProblem().empty(); }, [this] { return FirstProblem(); });
  txtChannelList.Changed.Connect([this] {
    ShowCount();
    Changed.Raise();
  });
  ShowCount();
}

std::vector<std::string_view> XChannelList::Entries() const {
  return Split(txtChannelList.Text());
}

void XChannelList::DataToCtls(const CKivPlmMode& mode) {
  std::string lines;
  for (const auto& channel : *mode.ChannelList()) lines += std::to_string(channel->Channel()) + '\n';
  txtChannelList.SetText(std::move(lines));
}

bool XChannelList::CtlsToData(CKivPlmMode& mode) const {
  // The stored rows take their study and mode from the mode itself.
  for (const std::string_view entry : Entries()) {
    mode.AddChannel(0, 0, NumberOr(entry, 0), ChannelKey(std::string(entry)));
  }
  return true;
}

bool XChannelList::ValidateMode(const CKivPlmMode& mode) {
  const auto problem = ModeProblem(mode);
  if (problem) Tell(*problem);
  return !problem;
}

std::optional<Problem> XChannelList::ModeProblem(const CKivPlmMode& mode) {
  if (mode.ChannelCount() > 0) return std::nullopt;
  return Problem{&txtChannelList, mode.Key() + ": " + kNoChannel};
}

/// Empty when every entry is in order.
std::string XChannelList::FirstProblem() const {
  const std::vector<std::string_view> entries = Entries();
  if (entries.empty()) return kNoChannel;
  std::unordered_set<std::int64_t> channels;
  for (const std::string_view entry : entries) {
    const std::string subject = "Channel " + std::string(entry);
    const auto channel = ParseNumber(entry);
    if (!channel) return subject + " is not a valid channel number. Please fix it.";
    if (!kChannelNumbers.Hold(*channel)) {
      return RangeText({subject, kChannelNumbers.low, kChannelNumbers.high, {}}) + ".";
    }
    if (!channels.insert(*channel).second) {
      return "Channel " + std::to_string(*channel) + " is a duplicate.";
    }
  }
  return {};
}

void XChannelList::ShowCount() {
  lblCount.SetCaption(ChannelCountText(Entries().size()));
}

ui::LayoutItem XChannelList::Layout() {
  return ui::Group(fraChannels, {ui::Single(txtChannelList), ui::Single(lblCount)});
}

std::string ChannelCountText(std::size_t count) {
  if (count == 0) return "no channels";
  return std::to_string(count) + (count == 1 ? " channel" : " channels");
}

}  // namespace kiv

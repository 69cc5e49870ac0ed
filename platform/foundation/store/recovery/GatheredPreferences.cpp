// SPDX-License-Identifier: MIT
#include "store/recovery/GatheredPreferences.hpp"

#include "store/recovery/GoodCopy.hpp"
#include "store/recovery/StoreRewrite.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceValue;
using StoreOutcome = QEVSettings::StoreOpening::Outcome;

namespace {

std::string count(std::size_t keys) {
  return std::to_string(keys) + (keys == 1 ? " key" : " keys");
}

}  // namespace

GatheredPreferences::GatheredPreferences(const std::filesystem::path& store,
                                         std::span<const PreferenceChange> memory) {
  for (const PreferenceChange& change : memory) salvage_.add(change);
  salvage_.addFile(store);
  const auto copies = unfinishedCopiesOf(store);
  if (!copies) problem_ = copies.error();
  if (copies) {
    for (const auto& copy : *copies) salvage_.addFile(copy);
  }
  addGoodCopy(store);
  if (salvage_.problem()) problem_ = salvage_.problem();
  contents_ = salvage_.changes();
  keys_ = static_cast<std::size_t>(
      std::count_if(contents_.begin(), contents_.end(),
                    [](const PreferenceChange& change) { return change.value.has_value(); }));
}

void GatheredPreferences::addGoodCopy(const std::filesystem::path& store) {
  struct stat found {};
  hasCopy_ = ::lstat(goodCopyOf(store).c_str(), &found) == 0;
  if (!hasCopy_ && errno != ENOENT) problem_ = unreadable(goodCopyOf(store));
  PreferencesSalvage copy;
  copy.addFile(goodCopyOf(store));
  if (copy.problem()) problem_ = copy.problem();
  const auto last = lastChangeOfGoodCopy(store);
  if (!last) problem_ = last.error();
  if (last) lastOfCopy_ = *last;
  for (PreferenceChange& change : copy.changes()) {
    if (!salvage_.has(change.key, change.number)) copyTime_ = found.st_mtim.tv_sec;
    salvage_.add(std::move(change));
  }
}

std::vector<PreferenceChange> GatheredPreferences::markedContents() const {
  auto marked = contents_;
  std::erase_if(marked, [](const PreferenceChange& change) { return change.key == kRecoveryKey; });
  std::int64_t number =
      contents_.empty() ? 0 : std::max(contents_.back().number, salvage_.lastNumber());
  // The good copy may have had newer changes that are damaged.
  do {
    number += kRecoveryStep;
  } while (isBehind(number, lastOfCopy_));
  marked.push_back({.key = std::string(kRecoveryKey), .value = std::nullopt, .number = number});
  return marked;
}

QEVSettings::StoreOpening GatheredPreferences::opening(const std::string& damage,
                                                       const std::string& end) const {
  QEVSettings::StoreOpening opening;
  const std::size_t lost = salvage_.lostKeys();
  opening.lostKeys = lost;
  opening.message = damage + "; ";
  if (keys_ == 0) {
    opening.outcome = StoreOutcome::begunEmpty;
    opening.message += "no value could be recovered, since ";
    opening.message += hasCopy_ ? "its good copy is damaged too" : "there is no good copy";
    opening.message += ", and the store begins empty";
  } else {
    opening.outcome = StoreOutcome::restored;
    opening.message += count(keys_) + (keys_ == 1 ? " was recovered" : " were recovered");
    if (copyTime_) {
      opening.copyTime =
          PreferenceValue::Date(PreferenceValue::Date::duration(static_cast<double>(*copyTime_)));
      opening.message +=
          ", with the good copy of " + textOfTime(*copyTime_, "%Y-%m-%d %H:%M:%S") + " UTC";
    }
  }
  if (lost > 0) {
    opening.message += "; the last change of " + count(lost) + " is lost";
  }
  opening.message += end;
  return opening;
}

std::string textOfTime(std::time_t time, const char* format) {
  std::tm parts{};
  ::gmtime_r(&time, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), format, &parts)};
}

}  // namespace foundation

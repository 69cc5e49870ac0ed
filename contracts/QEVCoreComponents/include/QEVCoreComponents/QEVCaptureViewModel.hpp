// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/ViewModel.hpp"
#include "QEVCoreComponents/NetworkInterfaces.hpp"
#include "QEVSettings/preferences/PreferenceDescriptor.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QEVCoreComponents {

// The limits of a whole number, both included, and its default.
//
//     if (!QEVCaptureViewModel::kBufferSize.contains(mebibytes)) return refuse(mebibytes);
struct NumberRange {
  std::int64_t lowest;
  std::int64_t highest;
  std::int64_t initial;

  bool contains(std::int64_t number) const { return number >= lowest && number <= highest; }
};

// The options of the next capture, stored in the preferences store under keys that begin with
// kKeyPrefix. A setter writes at once. A stored value of the wrong type or outside its range reads
// as the default. The model announces every change, including those of other processes. Main
// thread.
//
//     auto capture = std::make_shared<QEVCaptureViewModel>(store, interfaces);
class QEVCaptureViewModel final : public QEVCommonTools::ViewModel {
public:
  static constexpr std::string_view kKeyPrefix = "com_velloquin_zorvantine_capture_";

  static constexpr std::string_view kInterfaceKey = "com_velloquin_zorvantine_capture_interface";
  static constexpr std::string_view kPromiscuousKey =
      "com_velloquin_zorvantine_capture_promiscuous";
  static constexpr std::string_view kFilterKey = "com_velloquin_zorvantine_capture_filter";
  static constexpr std::string_view kSnapshotLengthKey =
      "com_velloquin_zorvantine_capture_snapshotLength";
  static constexpr std::string_view kBufferSizeKey = "com_velloquin_zorvantine_capture_bufferSize";
  static constexpr std::string_view kUsesRingKey =
      "com_velloquin_zorvantine_capture_usesRingOfFiles";
  static constexpr std::string_view kRingFileCountKey =
      "com_velloquin_zorvantine_capture_ringFileCount";
  static constexpr std::string_view kRingFileSizeKey =
      "com_velloquin_zorvantine_capture_ringFileSize";

  // What a host adds to its catalogue of settings for these keys.
  static std::vector<QEVSettings::PreferenceDescriptor> descriptors();

  static constexpr NumberRange kSnapshotLength{
      .lowest = 64, .highest = 262144, .initial = 262144};  // bytes a packet
  static constexpr NumberRange kBufferSize{.lowest = 1, .highest = 1024, .initial = 16};  // MiB
  static constexpr NumberRange kRingFileCount{.lowest = 2, .highest = 1000, .initial = 10};
  static constexpr NumberRange kRingFileSize{
      .lowest = 1, .highest = 10000, .initial = 100};  // MiB a file

  // The store must outlive the model. The interfaces are shared with the host and never null.
  QEVCaptureViewModel(QEVSettings::PreferencesStore& store,
                      std::shared_ptr<NetworkInterfaces> interfaces);

  // Whether an administrator has locked a key.
  bool isManaged(std::string_view key) const { return store_.isLocked(key); }

  std::vector<NetworkInterface> interfaces() const { return interfaces_->all(); }

  // The name of the interface to capture on. Empty stands for the first interface that is up.
  std::string interfaceName() const;
  void setInterfaceName(std::string_view name);

  bool isPromiscuous() const;
  void setPromiscuous(bool promiscuous);

  // The expression that selects the packets to record. Empty selects all.
  std::string captureFilter() const;
  void setCaptureFilter(std::string_view filter);

  // The setters of numbers ignore a number outside its range.
  std::int64_t snapshotLength() const;
  void setSnapshotLength(std::int64_t bytes);
  std::int64_t bufferSize() const;
  void setBufferSize(std::int64_t mebibytes);

  // Whether packets are written to a ring of files: when the last file is full, the oldest is
  // overwritten.
  bool usesRingOfFiles() const;
  void setUsesRingOfFiles(bool uses);
  std::int64_t ringFileCount() const;
  void setRingFileCount(std::int64_t count);
  std::int64_t ringFileSize() const;
  void setRingFileSize(std::int64_t mebibytes);

private:
  std::int64_t number(std::string_view key, const NumberRange& range) const;
  void setNumber(std::int64_t number, std::string_view key, const NumberRange& range);
  void set(QEVSettings::PreferenceValue value, std::string_view key);

  QEVSettings::PreferencesStore& store_;
  std::shared_ptr<NetworkInterfaces> interfaces_;
  foundation::Subscription interfacesWillChange_;
  QEVSettings::Subscription storeDidChange_;
};

}  // namespace QEVCoreComponents

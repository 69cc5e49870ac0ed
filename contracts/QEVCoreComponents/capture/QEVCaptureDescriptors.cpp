// SPDX-License-Identifier: MIT
#include "QEVCoreComponents/QEVCaptureViewModel.hpp"

namespace QEVCoreComponents {

using QEVSettings::IntegerRange;
using QEVSettings::PreferenceDescriptor;
using Type = QEVSettings::PreferenceValue::Type;

namespace {

PreferenceDescriptor wholeNumber(std::string_view key, const NumberRange& range, const char* title,
                                 const char* purpose) {
  return {.key = std::string(key),
          .type = Type::integer,
          .defaultValue = range.initial,
          .limits = IntegerRange{range.lowest, range.highest},
          .title = title,
          .purpose = purpose,
          .place = {.tab = "capture", .row = title}};
}

PreferenceDescriptor flag(std::string_view key, bool isOn, const char* title, const char* purpose) {
  return {.key = std::string(key),
          .type = Type::boolean,
          .defaultValue = isOn,
          .title = title,
          .purpose = purpose,
          .place = {.tab = "capture", .row = title}};
}

PreferenceDescriptor text(std::string_view key, const char* title, const char* purpose) {
  return {.key = std::string(key),
          .type = Type::string,
          .defaultValue = "",
          .title = title,
          .purpose = purpose,
          .place = {.tab = "capture", .row = title}};
}

}  // namespace

std::vector<PreferenceDescriptor> QEVCaptureViewModel::descriptors() {
  return {
      text(kInterfaceKey, "Capture on",
           "The network interface to capture on; empty for the first one that is up."),
      flag(kPromiscuousKey, true, "Promiscuous mode",
           "Whether packets for other machines are captured too."),
      wholeNumber(kSnapshotLengthKey, kSnapshotLength, "Snapshot length (bytes)",
                  "The number of bytes that are kept of each packet."),
      wholeNumber(kBufferSizeKey, kBufferSize, "Buffer size (MiB)",
                  "The memory for packets that wait to be written."),
      text(kFilterKey, "Capture filter",
           "The expression that selects the packets to record; empty for all packets."),
      flag(kUsesRingKey, false, "Ring of files",
           "Whether a capture is written to a fixed number of files, the oldest overwritten."),
      wholeNumber(kRingFileCountKey, kRingFileCount, "Number of files",
                  "The number of files in the ring."),
      wholeNumber(kRingFileSizeKey, kRingFileSize, "Size of a file (MiB)",
                  "The size at which the next file of the ring begins."),
  };
}

}  // namespace QEVCoreComponents

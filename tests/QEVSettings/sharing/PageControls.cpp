// SPDX-License-Identifier: MIT
#include "PageControls.hpp"

#include "QEVKonstantsKeys/Keys.hpp"

namespace QEVSettings {

using QEVCommonTools::FontPreferences;

namespace {

constexpr const char* kCapture = "Capture";
constexpr const char* kProxy = "MITM Proxy";

std::string captureKey(const std::string& name) {
  return "com_velloquin_zorvantine_capture_" + name;
}
std::string proxyKey(const std::string& name) { return "com_velloquin_zorvantine_proxy_" + name; }

std::string textAt(const StoredValues& values, const std::string& key) {
  const auto found = values.find(key);
  return found != values.end() ? *found->second.asString() : "";
}

bool boolAt(const StoredValues& values, const std::string& key, bool initial) {
  const auto found = values.find(key);
  return found != values.end() ? *found->second.asBoolean() : initial;
}

bool usesRing(const StoredValues& values) {
  return boolAt(values, captureKey("usesRingOfFiles"), false);
}

FieldOnPage numberField(const char* label, const std::string& name, std::int64_t initial,
                        std::vector<FieldOnPage::Text> texts) {
  const std::string key = captureKey(name);
  return {.tab = kCapture,
          .label = label,
          .key = key,
          .texts = std::move(texts),
          .shown =
              [key, initial](const StoredValues& values) {
                const auto found = values.find(key);
                return std::to_string(found != values.end() ? *found->second.asInteger() : initial);
              },
          .store =
              [key](StoredValues& values, const std::string& text) {
                values.insert_or_assign(key, static_cast<std::int64_t>(std::stoll(text)));
              }};
}

FieldOnPage ringField(FieldOnPage field) {
  field.isEnabled = usesRing;
  return field;
}

// The two parts of an address that is stored as one text.
struct AddressParts {
  std::string host;
  std::string port;

  std::string text() const { return host.empty() ? "" : host + ":" + port; }
};

AddressParts addressAt(const StoredValues& values, const std::string& key,
                       const AddressParts& initial) {
  const std::string text = textAt(values, key);
  const std::size_t colon = text.rfind(':');
  if (colon == std::string::npos) return initial;
  return {.host = text.substr(0, colon), .port = text.substr(colon + 1)};
}

FieldOnPage addressField(const char* label, const std::string& name, const AddressParts& initial,
                         std::string AddressParts::*part, std::vector<FieldOnPage::Text> texts) {
  const std::string key = proxyKey(name);
  return {
      .tab = kProxy,
      .label = label,
      .key = key,
      .texts = std::move(texts),
      .shown = [=](const StoredValues& values) { return addressAt(values, key, initial).*part; },
      .store =
          [=](StoredValues& values, const std::string& text) {
            // NOLINTNEXTLINE(misc-const-correctness): changed through the pointer to a member
            AddressParts address = addressAt(values, key, initial);
            address.*part = text;
            values.insert_or_assign(key, address.text());
          }};
}

// Without an upstream proxy its port is empty and disabled.
FieldOnPage upstreamPortField() {
  const std::string key = proxyKey("upstream");
  FieldOnPage field = addressField("Upstream port", "upstream", {}, &AddressParts::port,
                                   {{"3128", "3128"}, {"80", "80"}, {"70000", std::nullopt}});
  field.isEnabled = [key](const StoredValues& values) { return !textAt(values, key).empty(); };
  field.dropsTextWhenDisabled = true;
  return field;
}

}  // namespace

bool SwitchOnPage::isOn(const StoredValues& values) const { return boolAt(values, key, initial); }

const std::vector<SwitchOnPage>& switchesOfCaptureAndProxy() {
  static const std::vector<SwitchOnPage> switches{
      {kCapture, "Promiscuous mode", captureKey("promiscuous"), true},
      {kCapture, "Ring of files", captureKey("usesRingOfFiles"), false},
      {kProxy, "Proxy", proxyKey("enabled"), false},
      {kProxy, "Intercept TLS", proxyKey("interceptsTLS"), false},
  };
  return switches;
}

const std::vector<FieldOnPage>& fieldsOfCaptureAndProxy() {
  const AddressParts localhost{.host = "localhost", .port = "8080"};
  static const std::vector<FieldOnPage> fields{
      numberField("Snapshot length (bytes)", "snapshotLength", 262144,
                  {{"1500", "1500"}, {" 64 ", "64"}, {"12", std::nullopt}, {"", std::nullopt}}),
      numberField("Buffer size (MiB)", "bufferSize", 16,
                  {{"2", "2"}, {"1024", "1024"}, {"1025", std::nullopt}}),
      {.tab = kCapture,
       .label = "Capture filter",
       .key = captureKey("filter"),
       .texts = {{"tcp", "tcp"}, {" udp", "udp"}, {"", ""}, {"(tcp", std::nullopt}},
       .shown = [](const StoredValues& values) { return textAt(values, captureKey("filter")); },
       .store =
           [](StoredValues& values, const std::string& text) {
             values.insert_or_assign(captureKey("filter"), text);
           }},
      ringField(numberField("Number of files", "ringFileCount", 10,
                            {{"3", "3"}, {"7", "7"}, {"1", std::nullopt}})),
      ringField(numberField("Size of a file (MiB)", "ringFileSize", 100,
                            {{"5", "5"}, {"9", "9"}, {"0", std::nullopt}})),
      addressField(
          "Listening address", "listeningAddress", localhost, &AddressParts::host,
          {{"127.0.0.1", "127.0.0.1"}, {"proxy.test", "proxy.test"}, {"a b", std::nullopt}}),
      addressField("Listening port", "listeningAddress", localhost, &AddressParts::port,
                   {{"9090", "9090"}, {"80", "80"}, {"0", std::nullopt}}),
      addressField("Upstream proxy", "upstream", {.host = "", .port = "8080"}, &AddressParts::host,
                   {{"up.test", "up.test"}, {"10.0.0.1", "10.0.0.1"}, {"", ""}}),
      upstreamPortField(),
  };
  return fields;
}

const std::vector<FontPickerOnPage>& fontPickers() {
  static const std::vector<FontPickerOnPage> pickers{
      {"Packets List Font:", std::string(QEVKonstantsKeys::kFontPacketTable.name),
       &FontPreferences::com_velloquin_zorvantine_fontPacketTable},
      {"Console Font:", std::string(QEVKonstantsKeys::kFontConsoleRaw.name),
       &FontPreferences::com_velloquin_zorvantine_fontConsoleRaw},
      {"Protocol Details:", std::string(QEVKonstantsKeys::kFontProtocolDetails.name),
       &FontPreferences::com_velloquin_zorvantine_fontProtocolDetails},
      {"Protocol Statistics Font:", std::string(QEVKonstantsKeys::kFontBaseProtocolStatistics.name),
       &FontPreferences::com_velloquin_zorvantine_fontBaseProtocolStatistics},
      {"Data Sources List Font:", std::string(QEVKonstantsKeys::kFontDataSourcesList.name),
       &FontPreferences::com_velloquin_zorvantine_fontDataSourcesList},
      {"Data Sources Header Font:", std::string(QEVKonstantsKeys::kFontDataSourcesHead.name),
       &FontPreferences::com_velloquin_zorvantine_fontDataSourcesHead},
  };
  return pickers;
}

}  // namespace QEVSettings

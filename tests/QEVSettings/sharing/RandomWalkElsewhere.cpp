// SPDX-License-Identifier: MIT
#include "RandomWalk.hpp"

namespace QEVSettings {

void RandomWalk::meanwhile(const std::function<void()>& change) {
  if (perhaps()) change();
  if (perhaps()) hear();
}

void RandomWalk::changeElsewhere() {
  if (random(3) == 0) return changePortsElsewhere();
  const std::size_t what = random(8);
  if (what == 0) return storeElsewhere(kColorKey, rawColor(random(10)));
  if (what == 1) return storeElsewhere(kZoneKey, perhaps() ? "GMT" : "Europe/Berlin");
  if (what == 2) return storeElsewhere(kNoteKey, "note " + std::to_string(random(100)));
  changePageElsewhere();
}

void RandomWalk::changePageElsewhere() {
  switch (random(5)) {
    case 0: {
      const SwitchOnPage& toggle = oneOf(switches);
      taken_.back() += std::string(", elsewhere ") + toggle.label;
      return storeElsewhere(toggle.key, perhaps());
    }
    case 1: {
      return storeElsewhere(
          oneOf(fontPickers()).key,
          PreferenceDictionary{{"family", perhaps() ? "Serif" : "Test Mono"},
                               {"style", ""},
                               {"pointSize", static_cast<double>(random(20) + 6)}});
    }
    case 2: return storeElsewhere(kInterfaceKey, oneOf(kInterfaces));
    case 3: {
      storeElsewhere(std::string(QEVKonstantsKeys::kAppearanceUseSystem.name), perhaps());
      return storeElsewhere(std::string(QEVKonstantsKeys::kAppearanceName.name),
                            perhaps() ? kAppearanceNameAqua : kAppearanceNameDarkAqua);
    }
    default: {
      const FieldOnPage& field = oneOf(fieldsOfCaptureAndProxy());
      const auto& text = oneOf(field.texts);
      if (!text.stored) return;
      StoredValues next = values;
      field.store(next, *text.stored);
      const auto stored = next.find(field.key);
      taken_.back() += std::string(", elsewhere ") + field.label + " \"" + text.typed + '"';
      if (stored != next.end()) storeElsewhere(field.key, stored->second);
    }
  }
}

void RandomWalk::changePortsElsewhere() {
  const std::size_t index = random(records.size());
  switch (random(6)) {
    case 0:
      if (records.size() > factory.size()) {
        other.removeLast(kPortsKey);
        records.pop_back();
      }
      return;
    case 1:
      if (records.size() < 5) {
        const std::string name = "Added " + std::to_string(random(1000));
        records.push_back({other.append(kPortsKey, name), name, "1", 1});
      }
      return;
    case 2:
      records[index].name = oneOf(kNames);
      return other.setName(kPortsKey, index, records[index].name);
    default:
      records[index].ports = std::to_string(random(1000) + 1);
      return other.setPorts(kPortsKey, index, records[index].ports);
  }
}

void RandomWalk::selectElsewhere() {
  // Where both windows hold a text, which of them commits last is nobody's promise.
  if (!windows[0].typing.empty() && !windows[1].typing.empty()) return;
  const std::size_t index = random(2);
  other.set(kSelectionKey, static_cast<std::int64_t>(index));
  selected(static_cast<int>(index));
}

}  // namespace QEVSettings

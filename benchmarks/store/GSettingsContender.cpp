// SPDX-License-Identifier: MIT
#define G_SETTINGS_ENABLE_BACKEND
#include "Contender.hpp"

#include <gio/gio.h>
#include <gio/gsettingsbackend.h>

#include <cstdlib>
#include <fstream>

namespace {

constexpr const char* kSchema = "com.velloquin.benchmark";

template <class T>
struct Unref {
  void operator()(T* object) const { g_object_unref(object); }
};

// GSettings knows only the keys of a compiled schema.
void compileSchema(const std::filesystem::path& folder, std::size_t keyCount) {
  std::ofstream schema(folder / "benchmark.gschema.xml");
  schema << "<schemalist><schema id='" << kSchema << "' path='/benchmark/'>\n";
  for (std::size_t i = 0; i < keyCount; ++i) {
    schema << "<key name='" << keyName(i) << "' type='";
    switch (kindOf(i)) {
      case KeyKind::boolean: schema << "b'><default>false"; break;
      case KeyKind::string: schema << "s'><default>''"; break;
      case KeyKind::bytes: schema << "ay'><default>[]"; break;
    }
    schema << "</default></key>\n";
  }
  schema << "</schema></schemalist>\n";
  schema.close();
  const std::string command = "glib-compile-schemas --strict '" + folder.string() + "'";
  if (std::system(command.c_str()) != 0) std::abort();
}

class GSettingsContender final : public Contender {
public:
  GSettingsContender(const std::filesystem::path& folder, std::size_t keyCount) {
    GSettingsSchemaSource* source =
        g_settings_schema_source_new_from_directory(folder.c_str(), nullptr, TRUE, nullptr);
    GSettingsSchema* schema = g_settings_schema_source_lookup(source, kSchema, FALSE);
    GSettingsBackend* backend =
        g_keyfile_settings_backend_new((folder / "keyfile").c_str(), "/", "root");
    settings_.reset(g_settings_new_full(schema, backend, nullptr));
    g_object_unref(backend);
    g_settings_schema_unref(schema);
    g_settings_schema_source_unref(source);
    for (std::size_t i = 0; i < keyCount; ++i) names_.push_back(keyName(i));
  }

  bool readBoolean(std::size_t key) override {
    return g_settings_get_boolean(settings_.get(), names_[key].c_str());
  }
  std::size_t readString(std::size_t key) override {
    gchar* text = g_settings_get_string(settings_.get(), names_[key].c_str());
    const std::size_t read = lengthAndLast(std::string_view(text));
    g_free(text);
    return read;
  }
  std::size_t readBytes(std::size_t key) override {
    GVariant* value = g_settings_get_value(settings_.get(), names_[key].c_str());
    gsize size = 0;
    const auto* bytes = static_cast<const char*>(g_variant_get_fixed_array(value, &size, 1));
    const std::size_t read = lengthAndLast(std::string_view(bytes, size));
    g_variant_unref(value);
    return read;
  }
  void writeBoolean(std::size_t key, bool value) override {
    g_settings_set_boolean(settings_.get(), names_[key].c_str(), value);
    g_settings_sync();
  }

  void writeValue(std::size_t key, GVariant* value) {
    g_settings_set_value(settings_.get(), names_[key].c_str(), value);
  }
  void delay() { g_settings_delay(settings_.get()); }
  void apply() {
    g_settings_apply(settings_.get());
    g_settings_sync();
  }

private:
  std::unique_ptr<GSettings, Unref<GSettings>> settings_;
  std::vector<std::string> names_;
};

void fill(const std::filesystem::path& folder, std::size_t keyCount) {
  compileSchema(folder, keyCount);
  GSettingsContender store(folder, keyCount);
  store.delay();
  for (std::size_t i = 0; i < keyCount; ++i) {
    switch (kindOf(i)) {
      case KeyKind::boolean: store.writeValue(i, g_variant_new_boolean(TRUE)); break;
      case KeyKind::string:
        store.writeValue(i, g_variant_new_string(stringValue(i).c_str()));
        break;
      case KeyKind::bytes: {
        const auto bytes = bytesValue(i);
        store.writeValue(
            i, g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(), bytes.size(), 1));
        break;
      }
    }
  }
  store.apply();
}

}  // namespace

const ContenderKind& gSettingsContender() {
  static const ContenderKind kind{
      .name = "GSettings",
      .open = [](const std::filesystem::path& folder,
                 std::size_t keyCount) -> std::unique_ptr<Contender> {
        return std::make_unique<GSettingsContender>(folder, keyCount);
      },
      .fill = fill,
  };
  return kind;
}

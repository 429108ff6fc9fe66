// What other programs left in the registry, and the row of the database for one file type.
//
// Six lines are the type's extension, its identifier, the one that had the extension before, the
// two fall-backs and the context menu's name. Then values of HKEY_CLASSES_ROOT: a key's line, a
// byte for the kind, a byte for the length, the bytes.
#include <set>

#include "base/Text.h"
#include "config/FileAsoca.h"
#include "fakes/FakeRegistry.h"
#include "fuzz/Fuzz.h"
#include "platform/RegistryValue.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 500;

namespace {

/// Looks at what is written and deleted, and where.
struct WatchedRegistry : FakeRegistry {
  std::uint32_t read(RegistryRoot root, const std::string& key, const std::string& name,
                     std::string& value) const override {
    checkKey(key);
    return FakeRegistry::read(root, key, name, value);
  }
  std::uint32_t write(RegistryRoot root, const std::string& key, const std::string& name,
                      const std::string& value) override {
    note(root, key, name);
    return FakeRegistry::write(root, key, name, value);
  }
  std::uint32_t deleteValue(RegistryRoot root, const std::string& key,
                            const std::string& name) override {
    note(root, key, name);
    return FakeRegistry::deleteValue(root, key, name);
  }
  std::uint32_t deleteKey(RegistryRoot root, const std::string& key) override {
    note(root, key, "");
    return FakeRegistry::deleteKey(root, key);
  }

  static void checkKey(const std::string& key) {
    holds(!key.empty(), "never the root itself");
    holds(key.front() != '\\' && key.back() != '\\', "no backslash at either end of a key");
  }
  void note(RegistryRoot root, const std::string& key, const std::string& name) {
    checkKey(key);
    holds(root == RegistryRoot::classesRoot && name.empty(), "default values of classes alone");
    touched.insert(toUpper(key));
  }
  /// A value that another program wrote.
  void leave(const std::string& key, std::uint32_t kind, const std::string& bytes) {
    const auto text = registryValueText(
        kind, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    if (text) putClass(key, *text);
  }

  std::set<std::string> touched;
};

void readFields(Input& input, FileAsoca& type) {
  for (std::string* field :
       {&type.strAppAsocaKeyName, &type.strAppIdKeyName, &type.strOldAppIdKeyName,
        &type.strDefaultAppIdKeyName1, &type.strDefaultAppIdKeyName2, &type.strMenuHandlerName}) {
    *field = input.line();
  }
  type.strConfigFilePath = "/there is no/such database";
  type.strMainAppFilePath = "C:\\A B\\x.exe";
  type.strDefaultIcoFilePath = "C:\\A B\\media.ico";
  type.strMenuHandlerGUID = "{1-2}";
}

void readValues(Input& input, WatchedRegistry& registry) {
  while (!input.atEnd()) {
    const std::string key = input.line();
    const std::uint8_t kind = input.byte();
    registry.leave(key, kind, input.text(input.byte()));
  }
}

void checkTouched(const WatchedRegistry& registry, const FileAsoca& type) {
  const std::string id = toUpper(type.strAppIdKeyName);
  const std::string extension = toUpper(type.strAppAsocaKeyName);
  for (const std::string& key : registry.touched) {
    // The paths are the fields and what is appended; backslashes at their ends do not count.
    holds(extension.starts_with(key) || id.starts_with(key) || key.starts_with(id),
          "the keys of the extension and of the identifier alone");
  }
}

/// Whether the extension's key is one of those of the identifier, which makes no sense.
bool overlaps(const FileAsoca& type) {
  const auto name = [](const std::string& text) {
    return toUpper(text.substr(0, text.find_last_not_of('\\') + 1));
  };
  const std::string extension = name(type.strAppAsocaKeyName);
  const std::string id = name(type.strAppIdKeyName);
  return extension.starts_with(id) || id.starts_with(extension);
}

void checkAgreement(FileAsoca& type) {
  if (overlaps(type)) return;
  const bool shown = type.boolAssociate();
  type.checkAssociationState();
  holds(shown == type.boolAssociate(), "what is shown is what the registry says");
}

void run(Input input) {
  WatchedRegistry registry;
  FileAsoca type(registry);
  readFields(input, type);
  readValues(input, registry);

  type.checkAssociationState();
  holds(registry.touched.empty(), "looking changes nothing");
  type.InitializeRegistry();
  checkAgreement(type);
  type.setAssociationState(true);
  checkAgreement(type);
  type.setAssociationState(false);
  checkAgreement(type);
  type.deleteAssociationKeyFromReg();
  checkTouched(registry, type);
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}

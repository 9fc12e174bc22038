#include <TEVSystemLib/system/TEVSystemProperties.h>

#include "TEVSystemLib/system/detail/KeyText.h"
#include "TEVSystemLib/system/detail/StoreTables.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"

namespace TAMO::TEV::System {

namespace {

struct Store : TEVSystemProperties {
    detail::PropertyTables Tables() { return {getProperties(), getUserProperties()}; }

    // Keys of the user properties set since they were loaded or saved faithfully.
    std::set<std::string> unsaved;
    detail::KeyRoom keyRoom;
};

// Destroyed at process exit or when the DLL is unloaded.
std::unique_ptr<Store> store;

void Load(Store& loaded) {
    loaded.unsaved.clear();
    detail::LoadTables(loaded.Tables());
}

Store& Created() {
    if (!store) {
        // The store is there, with empty tables, before it is loaded: loading looks names up in it.
        store = std::make_unique<Store>();
        Load(*store);
    }
    return *store;
}

}  // namespace

namespace detail {

const std::string* Lookup(PropertyTables tables, const std::string& key) {
    return LookUp(tables, key,
                  [](const std::string& name) { return Util::detail::TryReadVariable(name); });
}

std::optional<StoreState> ExistingStore() {
    if (!store) return std::nullopt;
    return StoreState{store->Tables(), store->unsaved};
}

StoreState MadeStore() {
    Store& made = Created();
    return {made.Tables(), made.unsaved};
}

}  // namespace detail

TEVSystemProperties::TEVSystemProperties()
    : properties_(std::make_unique<detail::Properties>()),
      userProperties_(std::make_unique<detail::Properties>()) {}

TEVSystemProperties::~TEVSystemProperties() = default;

// NOLINTNEXTLINE(cert-oop54-cpp): there is nothing to assign.
TEVSystemProperties& TEVSystemProperties::operator=(const TEVSystemProperties&) { return *this; }

TEVSystemProperties& TEVSystemProperties::get() { return Created(); }

std::map<std::string, std::string>& TEVSystemProperties::getProperties() { return *properties_; }

std::map<std::string, std::string>& TEVSystemProperties::getUserProperties() {
    return *userProperties_;
}

void TEVSystemProperties::InitializeProperties() try {
    if (store) {
        Load(*store);
    } else {
        get();
    }
} catch (...) {
    return;
}

bool TEVSystemProperties::GetProperty(const char* key, const char*& value) try {
    value = nullptr;
    Store& made = Created();
    const detail::KeyText name(Util::detail::OrEmpty(key), made.keyRoom);
    const std::string* found = detail::Lookup(made.Tables(), name.Get());
    if (found == nullptr) return false;
    value = found->c_str();
    return true;
} catch (...) {
    return false;
}

bool TEVSystemProperties::GetPropertyAsBool(bool& value, const char* key) {
    value = false;
    const char* text = nullptr;
    if (!GetProperty(key, text)) return false;
    const auto on = detail::SwitchValue(text);
    value = on.value_or(false);
    return on.has_value();
}

}  // namespace TAMO::TEV::System

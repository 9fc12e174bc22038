#include <TEVSystemLib/system/TEVSystemProperties.h>

#include "TEVSystemLib/system/detail/PropertyIndex.h"
#include "TEVSystemLib/system/detail/StoreTables.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"

namespace TAMO::TEV::System {

namespace detail {

struct Store : TEVSystemProperties {
    StoreState State() { return {{*properties_, *userProperties_}, index, unsaved}; }

    PropertyIndex index;
    // Keys of the user properties set since they were loaded or saved faithfully.
    std::set<std::string> unsaved;
};

}  // namespace detail

namespace {

using detail::Store;

// Destroyed at process exit or when the DLL is unloaded.
std::unique_ptr<Store> store;

// The caller may change a table of the store from now on.
void Expose(const TEVSystemProperties& asked) {
    if (&asked == store.get()) store->index.CloseForGood();
}

void Load(Store& loaded) {
    loaded.unsaved.clear();
    loaded.index.Close();
    const detail::PropertyTables tables = loaded.State().tables;
    detail::LoadTables(tables);
    loaded.index.Open(tables);
}

Store& Created() {
    if (!store) {
        // The store is there, with empty tables, before it is loaded: loading looks names up in it.
        store = std::make_unique<Store>();
        Load(*store);
    }
    return *store;
}

// As detail::Lookup, by the index where it is open.
const std::string* Find(const detail::StoreState& made, std::string_view key) {
    if (!made.index.IsOpen()) return detail::Lookup(made.tables, std::string(key));
    const auto* entry = made.index.Find(key);
    if (entry == nullptr) {
        entry = detail::CacheVariable(made.tables.system, key, Util::detail::TryReadVariable);
        if (entry == nullptr) return nullptr;
        made.index.Put(*entry);
    }
    return &entry->second;
}

}  // namespace

namespace detail {

const std::string* Lookup(PropertyTables tables, const std::string& key) {
    return LookUp(tables, key, Util::detail::TryReadVariable);
}

std::optional<StoreState> ExistingStore() {
    if (!store) return std::nullopt;
    return store->State();
}

StoreState MadeStore() { return Created().State(); }

}  // namespace detail

TEVSystemProperties::TEVSystemProperties()
    : properties_(std::make_unique<detail::Properties>()),
      userProperties_(std::make_unique<detail::Properties>()) {}

TEVSystemProperties::~TEVSystemProperties() = default;

// NOLINTNEXTLINE(cert-oop54-cpp): there is nothing to assign.
TEVSystemProperties& TEVSystemProperties::operator=(const TEVSystemProperties&) { return *this; }

TEVSystemProperties& TEVSystemProperties::get() { return Created(); }

std::map<std::string, std::string>& TEVSystemProperties::getProperties() {
    Expose(*this);
    return *properties_;
}

std::map<std::string, std::string>& TEVSystemProperties::getUserProperties() {
    Expose(*this);
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
    const std::string* found = Find(detail::MadeStore(), Util::detail::OrEmpty(key));
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

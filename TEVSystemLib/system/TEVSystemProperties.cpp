#include <TEVSystemLib/system/TEVSystemProperties.h>

#include "TEVSystemLib/system/detail/PropertyTables.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"

namespace TAMO::TEV::System {

namespace {

struct Store : TEVSystemProperties {
    detail::PropertyTables Tables() { return {getProperties(), getUserProperties()}; }
};

// Destroyed at process exit or when the DLL is unloaded.
std::unique_ptr<Store> store;

Store& Created() {
    if (!store) {
        // The store is there, with empty tables, before it is loaded: loading looks names up in it.
        store = std::make_unique<Store>();
        detail::LoadTables(store->Tables());
    }
    return *store;
}

}  // namespace

namespace detail {

const std::string* Lookup(PropertyTables tables, const std::string& key) {
    if (const auto found = tables.user.find(key); found != tables.user.end()) return &found->second;
    if (const auto found = tables.system.find(key); found != tables.system.end())
        return &found->second;
    // KEEP: cached for good; a later change of the variable is not seen until the store is
    // reloaded.
    auto value = Util::detail::TryReadVariable(key);
    if (!value) return nullptr;
    return &tables.system.emplace(key, *std::move(value)).first->second;
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
        detail::LoadTables(store->Tables());
    } else {
        get();
    }
} catch (...) {
    return;
}

bool TEVSystemProperties::GetProperty(const char* key, const char*& value) try {
    value = nullptr;
    const std::string name(Util::detail::OrEmpty(key));
    const std::string* found = detail::Lookup(Created().Tables(), name);
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

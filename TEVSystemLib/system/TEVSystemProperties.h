#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <map>
#include <memory>
#include <string>

namespace TAMO::TEV::System {

namespace detail {
struct Store;
}  // namespace detail

// The process-wide configuration store: system properties from "tev.system.properties", user
// properties from "tev.user.properties". A lookup asks the user table, then the system table, then
// the process environment, whose answer is cached in the system table. Folders, file syntax,
// references, defaults and environment directives: docs/configuration-files.md.
//
// The store is created by the first call of any function and destroyed at process exit or when the
// DLL is unloaded. No public function throws.
//
// Threads: no lock. Initialise on one thread; afterwards lookups of keys that only the environment
// holds still write to the store, so guard them, setting, saving and reloading from outside.
class TEVSYSTEMLIB_API TEVSystemProperties {
 public:
    class DefaultValue;

    // Copies nothing, since there is one store.
    TEVSystemProperties& operator=(const TEVSystemProperties&);

    // Discards both tables, unsaved user properties and cached environment values included, reads
    // both files again and executes the environment directives again.
    static void InitializeProperties();

    // On success `value` points into the store, valid until that entry changes or the store is
    // reloaded; on failure it is null. A null key counts as empty.
    static bool GetProperty(const char* key, const char*& value);

    // True when the property reads, in any letter case, on, true, yes, 1 (value true) or off,
    // false, no, 0 (value false). Otherwise false with value false. Blanks are not trimmed.
    static bool GetPropertyAsBool(bool& value, const char* key);

    // Sets a user property in memory; the value is stored as it stands. A null key counts as empty.
    // False, with nothing changed, for a null value or when memory is exhausted. Besides the table
    // it notes the key, once, for TEVSystemDiagnostics::SaveUserPropertiesPreserving: one more
    // lookup and copy of the key, until that save or the next load.
    static bool SetUserProperty(const char* key, const char* value);

    // Writes the user table as sorted "key = value" lines over the existing user file. Comments in
    // the file are lost, which TEVSystemDiagnostics::SaveUserPropertiesPreserving keeps. False with
    // the file unchanged when no user file exists, the table is empty or the file cannot be opened.
    // False with THE OLD CONTENT GONE when the write falls short, as on a full disk, or memory is
    // exhausted once the file was opened: it then holds the first lines, or none, and its last line
    // may be cut. The table is unharmed, so saving again can mend the file. A failure that the
    // system reports only on closing is not seen.
    static bool SaveUserProperties();

 protected:
    // Two empty tables, not yet loaded; the accessor below makes the one instance.
    TEVSystemProperties();
    ~TEVSystemProperties();

    // The one instance, created and loaded by the first call. Throws std::bad_alloc when memory is
    // exhausted; the next call tries again.
    static TEVSystemProperties& get();

    // The system table and the user table. From the first call for the one instance on, lookups
    // search the tables instead of an index, since the caller may change them at any time;
    // TEVSystemDiagnostics::TakePropertiesSnapshot reads them without that.
    std::map<std::string, std::string>& getProperties();
    std::map<std::string, std::string>& getUserProperties();

 private:
    friend struct detail::Store;

    std::unique_ptr<std::map<std::string, std::string>> properties_;
    std::unique_ptr<std::map<std::string, std::string>> userProperties_;
};

// What the store puts in place of an invalid value of a well-known key, and what the caller applies
// when the key is missing: the store does not add it. CORVID_CSMXFORM_APPROX_OK is for the caller
// only.
class TEVSYSTEMLIB_API TEVSystemProperties::DefaultValue {
 public:
    static const char* const TEV_CNST_HGHT_DEFAULT_TM;
    static const char* const TEV_EXT_INTERSECTS_TERRAIN;
    static const char* const TEV_LOG_DYNAMIC_LOGGING;
    static const char* const TEV_LOG_LEVEL;
    static const char* const TEV_LOG_LOGGERS;
    static const char* const TEV_LOGGING_STATUS;
    static const char* const TEV_SUPPORT_PROXY_ISD;
    static const char* const TEV_SUPPORTED_PROXY_ISD_EXT;
    static const char* const CORVID_CSMXFORM_APPROX_OK;
    static const char* const CORVID_CSMXFORM_OPERATION_MODE;
    static const char* const CORVID_ENABLE_CSMXFORM;

 private:
    DefaultValue() = default;
    ~DefaultValue() = default;
};

}  // namespace TAMO::TEV::System

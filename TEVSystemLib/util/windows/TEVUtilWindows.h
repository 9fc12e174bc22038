#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>
#include <cstdint>
#include <string>

struct HINSTANCE__;  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): Windows

namespace TAMO::TEV::System::Util {

// Windows host services. Text is in the process's ANSI code page unless said otherwise; names,
// values and paths that begin or end with a plain space are trimmed of blanks at both ends. New C
// strings are released with TEVUtilString::DeleteCString, arrays of them with
// TEVUtilString::DeleteCStringArray. Failures show in the result, with outputs null; only
// GetPathEnvVariable throws.
//
// Threads: no lock is taken. The environment and, during LoadModule, the DLL search path belong to
// the whole process; the other functions may run on any thread.
class TEVSYSTEMLIB_API TEVUtilWindows {
 public:
    // The folder of a path up to and including its last separator, "/" turned into "\"; "." when it
    // has none; null for an empty path. A new array, also releasable with
    // TEVUtilMemory::DeallocateCharArray.
    static char* GetDirectory(char const* const path);
    // True for an existing directory; the path is UTF-8.
    static bool DirectoryExists(char const* const path);
    // TRUE ONLY FOR AN EXISTING DIRECTORY, false for every file: call TEVIO::exists for files.
    static bool FileExists(char const* const path);

    // The variable's value as a new C string in the C locale, or null when it is not set, empty, or
    // not representable there.
    static void GetEnv(const char* const name, char** value);
    // As GetEnv, for a folder: trimmed, and ended with "/" unless it ends with "\" or "/". Throws
    // std::runtime_error "Runtime error encountered while retrieving Windows System encironment
    // variable." when reading fails, with null.
    static void GetPathEnvVariable(const char* const name, char** value);
    // An empty variable counts as absent.
    static bool EnvironmentVariableExists(const char* const name);
    // All variables as two parallel arrays of new C strings, sorted bytewise by name. Variables
    // that are empty, nameless or not representable in the C locale are left out; of the per-drive
    // folders only drive C's is listed, under the name "=C:".
    static bool GetCurrentProcessEnvironmentVariables(char**& names, char**& values,
                                                      std::size_t& count);
    // Sets a variable of this process, or deletes it when `value` is null or empty, in the system's
    // environment and the C runtime's. Values of 32767 characters and more are refused.
    static bool SetSessionEnvironmentVariable(const char* const name, const char* const value);
    // Edits a list separated by ";". Operation 0 adds an element, at the front with `prepend`,
    // unless it is there already; 1 removes the first equal element; elements compare ignoring
    // case. Blank elements fall away when the list is stored. A variable that is not set is never
    // created. Removing the last element deletes the variable.
    static bool ModifySessionEnvironmentVariable(const char* const name, const char* const value,
                                                 bool prepend, int operation);

    // Loads a module with `dirs` (null, empty and missing ones are skipped) searched too; with none
    // left in the system's ordinary order. The caller releases with FreeModuleHandle. On failure
    // `error` holds the system's code and message; it is empty when the system gave none.
    static bool LoadModule(char const* const name, HINSTANCE__*& module, std::string& error,
                           char const** dirs, std::uint64_t count);
    // The same with a system error code instead of a text. ASKING FOR THE CODE CHANGES THE SEARCH:
    // with `dirs` and a non-null `code`, a failed load is tried once more in the ordinary order,
    // only to say why; a success of it is returned. `code` is -1 for an empty name, 0 for success
    // with `dirs`.
    static bool LoadModule(char const* const name, HINSTANCE__*& module, char const** dirs,
                           std::uint64_t count, int* code);
    // Releases a module and nulls the handle; null is left alone.
    static void FreeModuleHandle(HINSTANCE__*& module);

    // The full file name of a module loaded in this process as a new C string; null if not loaded.
    static char* GetModuleFullyQualifiedName(char const* const name);
    // Its folder, ending with "\", as a new C string; null if not loaded.
    static char* GetModuleFullyQualifiedPath(char const* const name);
    // The part before `text` (any letter case), ending with "\", of the path of the last-listed
    // module that contains it, but not at its start. Pass "\name.dll". False clears `folder`.
    static bool RetrieveFullyQualifiedModulePath(char const* const text, unsigned long processId,
                                                 std::string& folder);
    // Full file names of this process's modules.
    static bool RetrieveAllLoadedModulesInCurrentProcess(char**& modules, std::uint64_t& count);
    // The pseudo-handle of this process, which needs no release.
    static void* RetrieveCurrentProcess();
    static unsigned long RetrieveCurrentProcessID();

 private:
    TEVUtilWindows() = default;
    ~TEVUtilWindows() = default;
};

}  // namespace TAMO::TEV::System::Util

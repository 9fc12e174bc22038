#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

struct HINSTANCE__;  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): Windows
struct tagVARIANT;
struct tagSAFEARRAY;
struct _GUID;  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): Windows

namespace TAMO::TEV::System::Util {

// Windows host services. Text is in the process's ANSI code page unless said otherwise; names,
// values and paths that begin or end with a plain space are trimmed of blanks at both ends, but for
// DirectoryExists and FileExists, which take the path as it is. New C strings are released with
// TEVUtilString::DeleteCString, arrays of them with TEVUtilString::DeleteCStringArray. Failures
// show in the result, with outputs null; only functions that name an exception throw. When memory
// is exhausted even for its text, a std::runtime_error says that instead.
//
// Threads: no lock is taken. The environment and, during LoadModule, the DLL search path belong to
// the whole process; the other functions may run on any thread.
class TEVSYSTEMLIB_API TEVUtilWindows {
 public:
    // Paths
    //
    // The folder of a path up to and including its last separator, "/" turned into "\"; "." when it
    // has none; null for an empty path. A new array, also releasable with
    // TEVUtilMemory::DeallocateCharArray.
    static char* GetDirectory(char const* const path);
    // True for an existing directory; the path is UTF-8.
    static bool DirectoryExists(char const* const path);
    // TRUE ONLY FOR AN EXISTING DIRECTORY, false for every file: call TEVIO::exists for files.
    static bool FileExists(char const* const path);

    // Reading the environment: names are taken, and values given, in the C locale.
    //
    // The variable's value as a new C string; null when it is not set, empty, or not representable.
    static void GetEnv(const char* const name, char** value);
    // As GetEnv, for a folder: trimmed, and ended with "/" unless it ends with "\" or "/". Throws
    // std::runtime_error "Runtime error encountered while retrieving Windows System encironment
    // variable." when reading fails, also for a value that is not representable, with null.
    static void GetPathEnvVariable(const char* const name, char** value);
    // A variable that GetEnv reads as null counts as absent.
    static bool EnvironmentVariableExists(const char* const name);
    // All variables as two parallel arrays of new C strings, sorted bytewise by name. Variables
    // that are empty, nameless or not representable are left out; of the per-drive folders only
    // drive C's is listed, under the name "=C:" as the system spells it. False when nothing is
    // left.
    static bool GetCurrentProcessEnvironmentVariables(char**& names, char**& values,
                                                      std::size_t& count);

    // Changing the environment
    //
    // Sets a variable of this process, or deletes it when `value` is null or empty, in the system's
    // environment and the C runtime's. False for an empty name, a value of 32767 characters or
    // more, and when the system refuses.
    static bool SetSessionEnvironmentVariable(const char* const name, const char* const value);
    // Edits a list separated by ";", read as by GetEnv. Operation 0 adds an element, at the front
    // with `prepend`, unless it is there already; 1 removes the first equal element; elements
    // compare ignoring case. Elements of which trimming leaves nothing fall away when the list is
    // stored. True also when there was nothing to add or remove. False without a change for an
    // empty name or element, another operation, and a variable that reads as null: none is ever
    // created. Removing the last element deletes the variable.
    static bool ModifySessionEnvironmentVariable(const char* const name, const char* const value,
                                                 bool prepend, int operation);

    // Loading modules
    //
    // Loads a module with `dirs` (null, empty and missing ones are skipped) searched too; with none
    // left in the system's ordinary order. The caller releases with FreeModuleHandle. On failure
    // `error` holds the system's code and message, or the code alone when there is no message; it
    // is empty for an empty name, without a code, and when memory is exhausted. A folder is looked
    // for as UTF-8 and added in the ANSI code page: ASCII names are sure to be found.
    static bool LoadModule(char const* const name, HINSTANCE__*& module, std::string& error,
                           char const** dirs, std::uint64_t count);
    // The same with a system error code instead of a text. ASKING FOR THE CODE CHANGES THE SEARCH:
    // with `dirs` and a non-null `code`, a failed load is tried once more in the ordinary order,
    // only to say why; a success of it is returned. `code` is -1 for an empty name and when memory
    // is exhausted, 0 when the load with `dirs` succeeded, else the last error of the ordinary
    // load, EVEN AFTER ITS SUCCESS.
    static bool LoadModule(char const* const name, HINSTANCE__*& module, char const** dirs,
                           std::uint64_t count, int* code);
    // Releases a module and nulls the handle; null is left alone.
    static void FreeModuleHandle(HINSTANCE__*& module);

    // Loaded modules
    //
    // The full file name of a module loaded in this process as a new C string; null if not loaded.
    static char* GetModuleFullyQualifiedName(char const* const name);
    // Its folder, ending with "\", as a new C string; null if not loaded, or when `name` is no
    // shorter than the full file name.
    static char* GetModuleFullyQualifiedPath(char const* const name);
    // The part before `text` (any letter case), ending with "\", of the path of the last-listed
    // module that contains it, but not at its start. Pass "\name.dll". False clears `folder`.
    static bool RetrieveFullyQualifiedModulePath(char const* const text, unsigned long processId,
                                                 std::string& folder);
    // Full file names of this process's modules.
    static bool RetrieveAllLoadedModulesInCurrentProcess(char**& modules, std::uint64_t& count);

    // Install roots: where the framework and its companions are installed, folders ending with "\",
    // as new C strings; null, or false with null, when not found. Folders found are tested as
    // UTF-8: ASCII names are sure to be found.
    //
    // The folder of the first of the framework's marker modules loaded in this process:
    // "Plinth.dll", "SensorSupportDataLib.dll", "MeasureKitLib.dll".
    static char* GetCurrentProcessCorvidRootFolder();
    // The measurement toolkit's "lib\" folder beside the "data\" folder that KPT_DATA_DIR
    // names; if that leads nowhere, beside the "plugins\" folder that CSM_PLUGIN_DIR names. The
    // variables are read in the C locale and not trimmed. Accepted only where "CSMAPI.dll" in
    // it IS A FOLDER.
    static char* GetCurrentProcessKPTRootFolder();
    // THE FOLDER of this process's executable, without the file name; also releasable with
    // TEVUtilMemory::DeallocateCharArray.
    static bool GetFullyQualifiedExePath(char** folder);
    // The user's Documents folder; false when it does not exist.
    static bool GetCurrentUserHomeFolder(char** folder);

    // COM data. A BSTR (wchar_t*) made here is released with FreeBSTR or SysFreeString; an array
    // with DestroySafeArray, or by VariantClear of the variant that holds it. Outputs are reset to
    // null, 0 or VT_EMPTY first, without releasing what they held; a null output gives false.
    // Variants must have exactly the type named: references (VT_BYREF) are refused. Texts end at a
    // NUL character and are taken as they are; `firstKey` alone is trimmed.

    // Texts of COM
    //
    // -1, 0 or 1 in the order of the invariant locale. Throws std::runtime_error "BSTR comparison
    // operation failed.", also for a null text.
    static int CompareBSTR(bool ignoreCase, wchar_t* const& first, wchar_t* const& second);
    // A new BSTR; an empty text is copied, a null one gives false.
    static bool CopyBSTR(wchar_t* source, wchar_t** copy);
    // Releases a BSTR and nulls the pointer; null is accepted.
    static void FreeBSTR(wchar_t** text);
    // In characters, those behind a NUL too; 0 for null.
    static std::uint64_t GetBSTRLength(wchar_t* const& text);
    // A new C string, released with DeleteCharBuffer; a null or empty text gives false.
    static bool FromBSTRToMultibyteChar(wchar_t* const& text, char** out);
    // A new BSTR; a null or empty text gives false. Throws the _com_error of <comdef.h>
    // (E_OUTOFMEMORY) when memory is exhausted.
    static bool FromMultibyteCharToBSTR(char const* text, wchar_t** out);

    // GUIDs
    //
    // "{38 characters}" as a new wide text, released with TEVUtilString::DeleteWCharBuffer, or a
    // new C string.
    static bool ConvertCLSIDToString(_GUID const& clsid, wchar_t** out);
    static bool ConvertCLSIDToString(_GUID const& clsid, char** out);
    // From "{38 characters}" in either letter case, or a program name that the system knows.
    // `clsid` is the system's affair on failure. The narrow text is in the C locale.
    static bool GetCLSIDFromString(wchar_t const* text, _GUID& clsid);
    static bool GetCLSIDFromString(char const* text, _GUID& clsid);
    // A new GUID; as text 36 lower-case characters without braces, the empty text on failure.
    static bool GetGUID(_GUID* guid);
    static bool GetGUID(char** out);
    static std::string GetGUID();
    // FALSE FOR EVERY TEXT: the expression behind it matches none. The first call should not race
    // with another.
    [[deprecated(
        "false for every text; use GetCLSIDFromString with the text in braces")]] static bool
    IsValidUUID(char const* text);

    // Arrays of variants
    //
    // An array of `count` empty variants; bare, or in a variant.
    static bool CreateSafeArrayOfVariants(tagSAFEARRAY** out, std::uint64_t count);
    static bool CreateSafeArrayOfVariants(tagVARIANT* out, std::uint64_t count);
    // Null is accepted.
    static bool DestroySafeArray(tagSAFEARRAY* array);

    // Arrays in variants: one dimension with lower bound 0, VT_ARRAY | VT_R8, VT_I4, VT_BSTR.
    // Reading looks at the first stored bound only, and at numbers without a lock. What is
    // extracted is released with DeleteDoubleBuffer, DeleteIntBuffer, DeleteCStringArray.
    //
    // Numbers are copied; a null array or a `count` of 0 gives false.
    static bool SetDoubleArrayVARIANT(double* data, std::uint64_t count, tagVARIANT* out);
    static bool SetIntArrayVARIANT(int* data, std::uint64_t count, tagVARIANT* out);
    // Numbers, as a new array.
    static bool ExtractDoubleArrayFromVARIANT(double** out, std::uint64_t& count,
                                              tagVARIANT* variant);
    static bool ExtractIntArrayFromVARIANT(int** out, std::uint64_t& count, tagVARIANT* variant);
    // A null string is sent as an empty one.
    static bool SetStringArrayVARIANT(char const**& strings, std::uint64_t count, tagVARIANT* out);
    // A null or empty element gives a null slot, one that begins with a NUL fails the call. `count`
    // keeps the number of elements when a later
    // step fails.
    static bool ExtractStringArrayFromVariant(char**& out, std::uint64_t& count,
                                              tagVARIANT* variant);

    // Key/value tables: VT_ARRAY | VT_BSTR of two dimensions. MIND THE INDICES: the writer stores
    // at (row, 0) the key and at (row, 1) the value, the reader looks for them at (0, entry) and
    // (1, entry). Entries with an empty key or a null value are left out, rows follow the order of
    // the keys. A `firstKey` that is not empty with a `firstValue` that is not null makes a row in
    // front; an empty `firstValue` then fails the call, and so does a table without entries.
    static bool CreateKeyValueDataVariant(std::map<std::string, char*> const* data, tagVARIANT* out,
                                          char const* firstKey, char const* firstValue);
    // Empties `out` without releasing its strings. The first of equal keys wins; entries
    // without a key are passed over, an empty value is null, one that begins with a NUL fails the
    // call. On failure what was read is released and `out` is empty. The caller releases each
    // value with DeleteCharBuffer.
    static bool ExtractKeyValueDataFromVARIANT(tagVARIANT const* variant,
                                               std::map<std::string, char*>& out);

    // Release: what was extracted from COM data; null is accepted, the pointer becomes null.
    static void DeleteCharBuffer(char** buffer);
    static void DeleteDoubleBuffer(double** buffer);
    static void DeleteIntBuffer(int** buffer);
    static void DeleteCStringArray(char**& array, std::uint64_t count);

    // TEVUtilString::SignificantFigures with BSTRs.
    static bool SignificantFigures(double value, double uncertainty, wchar_t** valueText,
                                   wchar_t** uncertaintyText, bool scientific);

    // This process
    //
    // The pseudo-handle of this process, which needs no release.
    static void* RetrieveCurrentProcess();
    // Its number.
    static unsigned long RetrieveCurrentProcessID();

 private:
    TEVUtilWindows() = default;
    ~TEVUtilWindows() = default;
};

}  // namespace TAMO::TEV::System::Util

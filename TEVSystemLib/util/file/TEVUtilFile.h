#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>
#include <map>
#include <string>

namespace TAMO::TEV::System::Util {

// Windows file names, folder listings and key=value files. Paths are 8-bit text. GetFileName,
// GetFileNameIndex and the listing normalise them: one that begins or ends with a plain space is
// trimmed of blanks at both ends, and "/" is turned into "\".
//
// Threads: no shared state; any number of threads may work on distinct data.
class TEVSYSTEMLIB_API TEVUtilFile {
 public:
    // The text from the last "." on, or behind it without `includeDot`; it points into `path`.
    // Folder names are not excluded. False with null without a "." or when it is the first
    // character.
    static bool GetFileExtension(const char* const path, const char*& extension, bool includeDot);

    // The text behind the last "\" as a new C string, released with
    // TEVUtilString::DeleteCString. A name without folder, or directly in "\", gives false with
    // null, and so does exhausted memory for the new string; for what comes before it throws
    // std::runtime_error "Failed to allocate enough memory to perform requested operation.". Throws
    // std::invalid_argument "ERROR: Invalid input fully qualified file name and/or NULL output
    // parameter." for an empty path or a null `name` (untouched), "ERROR: Invalid input fully
    // qualified file name." for a path that ends with "\".
    static bool GetFileName(const char* const path, char** name);

    // The position at which the file name begins in the path AS NORMALISED ABOVE (leading blanks
    // trimmed), or -1.
    static int GetFileNameIndex(const char* const path);

    // Full paths of the files of a folder that match "*" + extension, in the system's order and
    // under its matching rules; the "." may be left out. The caller releases with
    // TEVUtilString::DeleteCStringArray. `directory` and `extension` are UTF-8, the results are
    // in the C locale. Outputs are untouched when the extension is shorter than two characters
    // or ends with ".", or the folder does not exist. Null and 0 when nothing matches and on
    // failure, also when the C locale lacks a character of one name; an error of the system in
    // the middle only ends the list.
    static void GetFilesInDirWithGivenExt(char**& files, const char* const directory,
                                          const char* const extension, std::size_t& count);

    // Adds the pairs of a key=value file to `pairs`; the last line for a key wins, over entries
    // that were there too. `fileName` is UTF-8 and passed on as it stands. False with `pairs`
    // unchanged when the file cannot be read or is empty, or memory is exhausted. Syntax:
    // docs/configuration-files.md. With `blankSeparated` a line is "key value", and "=" is an
    // ordinary character but at its start.
    static bool GetKeyValuePairsFromFile(const std::string& fileName,
                                         std::map<std::string, std::string>& pairs,
                                         bool blankSeparated);

 private:
    TEVUtilFile() = default;
    ~TEVUtilFile() = default;
};

}  // namespace TAMO::TEV::System::Util

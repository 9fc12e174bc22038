#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/file/TEVUtilFile.h>

#include "TEVSystemLib/util/file/detail/KeyValueParser.h"
#include "TEVSystemLib/util/memory/detail/OwnedArray.h"

namespace TAMO::TEV::System::Util {

bool TEVUtilFile::GetKeyValuePairsFromFile(const std::string& fileName,
                                           std::map<std::string, std::string>& pairs,
                                           bool blankSeparated) try {
    char* data = nullptr;
    std::uint64_t size = 0;
    if (!TEVIO::readFile(fileName.c_str(), &data, size)) return false;
    const detail::OwnedText content(data);
    detail::KeyValueParser parser({content.get(), size},
                                  blankSeparated ? detail::KeyValueSyntax::BlankSeparated
                                                 : detail::KeyValueSyntax::EqualSeparated);
    std::map<std::string, std::string> read;
    // Files are often sorted: at the end there is nothing to search.
    while (const auto pair = parser.Next())
        read.insert_or_assign(read.end(), std::string(pair->key), std::string(pair->value));
    // From here on nothing fails: what the file does not name is moved over from `pairs`.
    read.merge(pairs);
    pairs.swap(read);
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util

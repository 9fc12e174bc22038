// Reads a file of "key = value" lines into a map.
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <iostream>
#include <map>
#include <string>

using namespace TAMO::TEV::System::Util;

int main() {
    // The file's pairs are added to what is there: these are the defaults.
    std::map<std::string, std::string> sensor = {{"bands", "1"}, {"pixel", "0.5"}};
    const bool blankSeparated = false;
    if (!TEVUtilFile::GetKeyValuePairsFromFile("data/sensor.txt", sensor, blankSeparated)) return 1;
    for (const auto& [key, value] : sensor) std::cout << key << ": " << value << '\n';

    // Texts become numbers only when they are accepted; else the variable keeps its value.
    int bands = 0;
    double pixel = 0.0;
    if (TEVUtilString::ToInteger(sensor["bands"].c_str(), bands) &&
        TEVUtilString::ToDouble(sensor["pixel"].c_str(), pixel))
        std::cout << bands << " bands of " << pixel << " m\n";
    if (!TEVUtilString::ToInteger(sensor["name"].c_str(), bands))
        std::cout << "\"" << sensor["name"] << "\" is no number\n";

    // A file that cannot be read leaves the map as it was.
    if (!TEVUtilFile::GetKeyValuePairsFromFile("data/absent.txt", sensor, blankSeparated))
        std::cout << "absent.txt: not read, " << sensor.size() << " pairs left\n";
}

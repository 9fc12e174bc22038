// Owns what the library hands out: each owner releases through the library's own function.
#include <TEVSystemLib/TEVOwned.h>
#include <TEVSystemLib/util/file/TEVIO.h>

#include <iostream>
#include <utility>

using namespace TAMO::TEV::System;
using namespace TAMO::TEV::System::Host;
using Util::TEVIO;
using Util::TEVUtilString;
using Util::TEVUtilWindows;

int main() {
    // Out releases what the owner held and gives the library its place.
    OwnedText text;
    for (const char* source : {"first", "second"}) TEVUtilString::Copy(source, Out(text), nullptr);
    std::cout << "text    " << text.View() << '\n';

    // A result goes straight into an owner, and moves on to another one.
    OwnedText folder(TEVUtilWindows::GetDirectory("C:\\maps\\a.ntf"));
    const OwnedText kept = std::move(folder);
    std::cout << "folder  " << kept.View() << (folder ? "" : ", moved") << '\n';

    // Arrays know their size. The named call cannot swap text and delimiters.
    const OwnedTextArray tokens = Tokenize(Text("red,green,blue"), Delimiters(","));
    std::cout << "tokens  " << tokens.size() << ':';
    for (const char* token : tokens) std::cout << ' ' << token;
    std::cout << '\n';

    // An array that a call changes is passed as it is.
    OwnedTextArray names;
    for (const char* name : {"b", "c"})
        TEVUtilString::AddEntryToStringArray(InOut(names), name, Count(names), true);
    std::cout << "names   " << names[0] << ' ' << names[1] << '\n';

    OwnedBuffer content;
    if (!TEVIO::readFile("data/sensor.txt", Out(content), Count(content))) return 1;
    std::cout << "file    begins with '" << content[0] << "'\n";

    OwnedMessages messages;
    TEVUtilString::GetMsgsMap(Out(messages));
    if (!messages) return 1;
    TEVUtilString::AddMessage("disk full", TEVSysCnst::Error, *messages);
    std::cout << "error   " << messages->at(TEVSysCnst::Error)->front() << '\n';
}

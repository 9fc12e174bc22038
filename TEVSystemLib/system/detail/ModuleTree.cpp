#include "TEVSystemLib/system/detail/ModuleTree.h"

#include <map>
#include <memory>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/PeImage.h"

namespace TAMO::TEV::System::detail {

namespace {

using Util::detail::PeFlaw;
using Util::detail::PeFunction;
using Util::detail::PeImage;
using Util::detail::PeImport;
using Util::detail::PeImportedModule;

using Module = TEVSystemDiagnostics::Module;
using State = TEVSystemDiagnostics::ModuleState;

// A file's content and what it says; the one points into the other.
struct ReadModule {
    std::string content;
    PeImage image;
    bool isReadable = false;
};

const char* TextOf(PeFlaw flaw) {
    switch (flaw) {
        case PeFlaw::None:
            break;
        case PeFlaw::Empty:
            return "it is empty";
        case PeFlaw::NoModule:
            return "it does not begin as a module does";
        case PeFlaw::CutOff:
            return "it ends before what its headers announce";
        case PeFlaw::Damaged:
            return "its tables of imports and exports are damaged";
        case PeFlaw::OtherForm:
            return "its header has an unknown form";
    }
    return "";
}

std::string MachineText(std::uint16_t machine) {
    switch (machine) {
        case 0x14C:
            return "32-bit x86";
        case 0x1C0:
        case 0x1C4:
            return "32-bit ARM";
        case 0xAA64:
            return "64-bit ARM";
        default:
            return "the machine number " + std::to_string(machine);
    }
}

std::string NameOf(const PeImport& function) {
    return function.name.empty() ? '#' + std::to_string(function.ordinal)
                                 : std::string(function.name);
}

class TreeMaker {
 public:
    explicit TreeMaker(const ModuleAccess& access) : access_(access) {}

    Module Make(const std::string& name) {
        Module module;
        module.name = name;
        Fill(module, 0);
        return module;
    }

 private:
    // Deeper chains and larger trees are not made by linkers.
    static constexpr int kMaxDepth = 200;
    static constexpr std::size_t kMaxModules = 10000;
    static constexpr int kMaxForwards = 16;

    const std::optional<ModulePlace>& Place(std::string_view name) {
        const auto [entry, isNew] = places_.try_emplace(Util::detail::ToLower(name));
        if (isNew) entry->second = access_.find(std::string(name));
        return entry->second;
    }

    const ReadModule& Read(const std::string& file) {
        std::unique_ptr<ReadModule>& read = read_[Util::detail::ToLower(file)];
        if (read != nullptr) return *read;
        read = std::make_unique<ReadModule>();
        auto content = access_.read(file);
        read->isReadable = content.has_value();
        if (content) read->content = *std::move(content);
        read->image = Util::detail::ReadPeImage(read->content);
        return *read;
    }

    void Fill(Module& module, int depth) {
        const auto& place = Place(module.name);
        if (!place) module.state = State::Missing;
        if (!place) return;
        module.file = place->file;
        if (place->isOfTheSystem) module.state = State::System;
        if (place->file.empty()) return;
        Judge(module, Read(place->file));
        if (module.state == State::Found) Follow(module, depth);
    }

    // What is wrong with the file itself.
    static void Judge(Module& module, const ReadModule& read) {
        const PeImage& image = read.image;
        if (!read.isReadable) {
            if (module.state != State::System) module.state = State::Unreadable;
        } else if (image.machine != 0 && image.machine != Util::detail::kPeMachineX64) {
            module.state = State::OtherMachine;
            module.flaw = MachineText(image.machine);
        } else if (image.flaw != PeFlaw::None) {
            module.state = State::NotAModule;
            module.flaw = TextOf(image.flaw);
        }
    }

    void Follow(Module& module, int depth) {
        const std::string key = Util::detail::ToLower(module.file);
        if (isFollowed_[key]) module.state = State::Repeated;
        if (isFollowed_[key]) return;
        if (depth == kMaxDepth || count_ >= kMaxModules) module.state = State::NotFollowed;
        if (module.state != State::Found) return;
        isFollowed_[key] = true;
        const ReadModule& read = *read_[key];
        for (const PeImportedModule& import : read.image.imports) {
            if (++count_ > kMaxModules) return;
            module.imports.push_back(MakeImport(import, depth + 1));
        }
    }

    Module MakeImport(const PeImportedModule& import, int depth) {
        Module module;
        module.name = import.name;
        module.isDelayed = import.isDelayed;
        if (import.isDelayed)
            Locate(module);
        else
            Fill(module, depth);
        if (const ReadModule* read = Sound(module.name))
            for (const PeImport& function : import.functions) Require(module, *read, function);
        return module;
    }

    // Whether it is there, without what it needs in its turn.
    void Locate(Module& module) {
        const auto& place = Place(module.name);
        module.state = !place                 ? State::Missing
                       : place->isOfTheSystem ? State::System
                                              : State::Found;
        if (!place || place->file.empty()) return;
        module.file = place->file;
        Judge(module, Read(place->file));
    }

    // A module whose exports can be asked; null for others. A system file without exports stands
    // for something that the loader has elsewhere.
    const ReadModule* Sound(std::string_view name) {
        const auto& place = Place(name);
        if (!place || place->file.empty()) return nullptr;
        const ReadModule& read = Read(place->file);
        const bool isSound = read.isReadable && read.image.flaw == PeFlaw::None &&
                             read.image.machine == Util::detail::kPeMachineX64;
        const bool isStandIn = place->isOfTheSystem && read.image.exports.functions.empty();
        return isSound && !isStandIn ? &read : nullptr;
    }

    void Require(Module& module, const ReadModule& read, const PeImport& wanted) {
        const PeFunction* function = read.image.exports.Find(wanted);
        if (function == nullptr) {
            module.missingFunctions.push_back({NameOf(wanted), {}});
        } else if (module.state != State::System && !LeadsToAFunction(*function)) {
            module.missingFunctions.push_back({NameOf(wanted), std::string(function->forwarder)});
        }
    }

    // Where the system's own modules forward to is the system's affair.
    bool LeadsToAFunction(const PeFunction& first) {
        const PeFunction* function = &first;
        for (int i = 0; i < kMaxForwards; ++i) {
            if (function->forwarder.empty()) return true;
            std::string_view target;
            PeImport wanted;
            if (!Util::detail::SplitForwarder(function->forwarder, target, wanted)) return false;
            const std::string name = std::string(target) + ".dll";
            if (!Place(name)) return false;
            const ReadModule* read = Sound(name);
            if (read == nullptr) return Place(name)->isOfTheSystem;
            function = read->image.exports.Find(wanted);
            if (function == nullptr) return false;
            if (Place(name)->isOfTheSystem) return true;
        }
        return false;
    }

    const ModuleAccess& access_;
    std::map<std::string, std::optional<ModulePlace>> places_;
    std::map<std::string, std::unique_ptr<ReadModule>> read_;
    std::map<std::string, bool> isFollowed_;
    std::size_t count_ = 0;
};

}  // namespace

Module MakeModuleTree(const std::string& name, const ModuleAccess& access) {
    return TreeMaker(access).Make(name);
}

std::string WithModuleEnding(std::string_view name) {
    const std::size_t end = name.find_last_of("/\\");
    const std::string_view last = name.substr(end == std::string_view::npos ? 0 : end + 1);
    if (last.find('.') == std::string_view::npos) return std::string(name) + ".dll";
    return std::string(last.back() == '.' ? name.substr(0, name.size() - 1) : name);
}

}  // namespace TAMO::TEV::System::detail

#pragma once

#include <string>
#include <vector>

// What the rows of all files amount to.
namespace tev::fault {

enum class Effect { Allocates, Idle };

struct RegisteredRow {
    std::string function;
    Effect effect;
};

std::vector<RegisteredRow>& RegisteredRows();

// An exported name without the namespaces and the default arguments of the containers.
std::string ShortName(std::string exported);

}  // namespace tev::fault

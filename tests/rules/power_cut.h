#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "support/modelled_disk.h"
#include "support/modelled_file_system.h"

namespace files {

/// What the machine is like.
struct Machine {
    support::CutModel model = support::CutModel::Ordered;
    bool keepsNumbers = true;
    bool flushesFolders = true;

    support::ModelledFileSystem fileSystem(support::ModelledDisk& disk) const {
        support::ModelledFileSystem made(disk);
        made.keepsNumbers = keepsNumbers;
        made.flushesFolders = flushesFolders;
        return made;
    }
};

inline const Machine kMachines[] = {{support::CutModel::Ordered, true, true},
                                    {support::CutModel::Ordered, true, false},
                                    {support::CutModel::Ordered, false, false},
                                    {support::CutModel::AnySubset, true, true},
                                    {support::CutModel::AnySubset, false, true}};

inline std::mt19937_64 randomBits(20261121);  // NOLINT: the same numbers in every run

/// Which unflushed changes arrive: every choice where there are few, else none, all and some at random.
inline std::vector<std::uint64_t> choices(std::size_t pending, std::size_t most) {
    std::vector<std::uint64_t> chosen;
    if (pending < 6 && (std::size_t{1} << pending) <= most) {
        for (std::uint64_t bits = 0; bits < (std::uint64_t{1} << pending); ++bits) {
            chosen.push_back(bits);
        }
        return chosen;
    }
    chosen = {0, ~std::uint64_t{0}};
    while (chosen.size() < most) {
        chosen.push_back(randomBits());
    }
    return chosen;
}

}  // namespace files

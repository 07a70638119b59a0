// The files of which this run of the program has itself compared the bytes, and how they stood then. Filled
// by the comparison for files in pairs, emptied when the next one begins; asked by the deletion, which else
// compares anew. A slice of the run state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/text/text_hash.h"
#include "platform/file_system.h"

namespace corvane {

class proven_files {
  public:
    struct proof {
        std::int32_t star = 0;  // files of one star have been compared with the same file, byte by byte
        file_facts facts;       // at their first reading
    };

    void clear() { proofs_.clear(); }
    // `facts` are those from before the file was read, confirmed after it.
    void note(std::string_view path, std::int32_t star, const file_facts& facts) {
        proofs_.insert_or_assign(std::string(path), proof{star, facts});
    }
    // Null when the bytes of that path were not compared.
    const proof* find(std::string_view path) const {
        const auto found = proofs_.find(path);
        return found == proofs_.end() ? nullptr : &found->second;
    }
    std::size_t size() const { return proofs_.size(); }

  private:
    std::unordered_map<std::string, proof, text_hash, std::equal_to<>> proofs_;
};

struct proof_state {
    proven_files proven;
};

}  // namespace corvane

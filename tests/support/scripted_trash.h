// A recycle bin over the disk in memory: what goes there keeps its content and can be taken back.
#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/trash.h"
#include "tests/support/memory_file_system.h"

namespace corvane {

class scripted_trash : public trash {
  public:
    explicit scripted_trash(memory_file_system& files) : files_(files) {}

    std::map<std::string, memory_file> entries;  // by name
    std::map<std::string, std::string> sources;  // old path by name
    std::set<std::string> unfound;               // old paths that find() does not find
    std::map<std::string, obstacle> refusals;    // by old path
    bool mounted = true;
    std::size_t finds = 0, restores = 0;

    // What the desktop's recycle call does.
    outcome take(const std::string& path, const memory_file& file) {
        const std::string name = "entry" + std::to_string(++count_);
        entries[name] = file;
        sources[name] = path;
        return outcome::success();
    }
    void empty() { entries.clear(); }

    std::optional<recycled_item> look(const std::string& path) override {
        const file_facts facts = files_.facts(path);
        if (!facts.exists) return {};
        recycled_item item;
        item.path = path;
        item.folder = path.substr(0, path.rfind('/'));
        item.identity = facts.identity;
        item.length = facts.length;
        item.modified_ns = facts.modified_ns;
        return item;
    }
    std::vector<trash_entry> find(std::span<const recycled_item> gone) override {
        ++finds;
        std::vector<trash_entry> found;
        for (const recycled_item& item : gone) {
            trash_entry entry;
            for (const auto& [name, path] : sources)
                if (path == item.path && entries.contains(name) && !unfound.contains(path))
                    entry = {"/bin", name};
            found.push_back(entry);
        }
        return found;
    }
    trash_state state(const recycled_item&, const trash_entry& entry) override {
        if (!mounted) return trash_state::out_of_reach;
        if (entry.place != "/bin") return trash_state::other;
        return entries.contains(entry.name) ? trash_state::there : trash_state::gone;
    }
    bool stands_at(const recycled_item& item, const std::string& path) override {
        const file_facts facts = files_.facts(path);
        return facts.exists && facts.length == item.length && facts.modified_ns == item.modified_ns;
    }
    restoring restore(const recycled_item& item, const trash_entry& entry) override {
        ++restores;
        restoring answer;
        const auto refused = refusals.find(item.path);
        if (refused != refusals.end()) {
            answer.why = refused->second;
            answer.reason = "the system's words";
            return answer;
        }
        const auto found = entries.find(entry.name);
        answer.why = found == entries.end() ? obstacle::gone : obstacle::none;
        if (!answer.ok()) return answer;
        answer.path = files_.has(item.path) ? item.path + " (恢复)" : item.path;
        memory_file& file = files_.add_file(answer.path);
        const std::uint64_t index = found->second.index;
        file = found->second;
        file.index = index;
        entries.erase(found);
        return answer;
    }

  private:
    memory_file_system& files_;
    int count_ = 0;
};

}  // namespace corvane

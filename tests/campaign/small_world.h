// A small tree of everything that has copies, a program over it, and an account of its own of what must never
// be lost. Used by the campaign.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "app/program.h"
#include "core/archives/checksum.h"
#include "tests/campaign/faulty_disk.h"
#include "tests/campaign/faulty_ports.h"
#include "tests/support/archive_images.h"

namespace corvane {

struct small_world {
    memory_file_system disk;
    faulty_disk files{disk};
    faulty_desktop desktop;
    faulty_screen screen;
    faulty_encoding encodings;
    program corvane;
    Tavrel& form;
    run_state& state;

    std::vector<std::string> paths;  // of the user's files, archives included
    std::set<std::string> contents;  // what the user has, archives' members included
    std::set<std::string> let_go;    // contents whose last holder the user removed as a file without a twin
    std::vector<std::string> recycled;
    std::size_t members_gone = 0;  // out of archives, by the tool

    small_world()
        : corvane({files, desktop, desktop, screen, encodings}, "/prog/"),
          form(corvane.main_form()),
          state(form.state) {
        disk.add_directory("/prog");
        add("/d/one", "alone in the world");
        for (const char* path : {"/d/a", "/d/sub/a", "/d/sub/a (1)", "/e/copy of a"})
            add(path, "content of a");
        for (const char* path : {"/d/b", "/e/b"}) add(path, std::string(70'000, 'b'));
        for (const char* path : {"/d/B", "/e/B"}) add(path, std::string(69'999, 'b') + "B");
        for (const char* path : {"/d/empty", "/e/empty"}) add(path, "");
        // Two links of one file, and one file by two paths.
        for (const char* path : {"/d/link1", "/e/link2"}) {
            add(path, "linked content");
            disk.add_file(path, "linked content").link_count = 2;
            disk.add_file(path, "linked content").index = 7001;
        }
        for (const char* path : {"/d/bound/x", "/mnt/bound/x"}) {
            add(path, "bound content");
            disk.add_file(path, "bound content").index = 7002;
        }
        disk.add_directory("/d/bound").index = 7003;
        disk.add_directory("/mnt/bound").index = 7003;
        // The two sides of a stacked mount.
        for (const char* path : {"/upper/s", "/merged/s"}) {
            add(path, "stacked content");
            memory_file& file = disk.add_file(path, "stacked content");
            file.index = 7004;
            file.device = path[1] == 'u' ? 1 : 9;
            file.stacked = path[1] == 'm';
            file.modified_ns = file.changed_ns = 1'234'567'891;
        }
        disk.add_link("/e/to d", "/d");
        for (const char* path : {"/d/hollow", "/e/hollow/deep"}) disk.add_directory(path);
        add_zip("/d/z.zip", {{"in/a.txt", "content of a"},
                             {"\xD6\xD0", "only inside"},
                             {"twice", "twice inside the archives"}});
        add_zip("/e/y.zip", {{"twice", "twice inside the archives"}});
        memory_file& locked = disk.add_file("/e/b", std::string(70'000, 'b'));
        locked.read_only = true;
        desktop.on_recycle = [this](const std::string& path) {
            if (!disk.has(path)) return outcome::failure("not there");
            note_departure(path);
            erase_below(path);
            recycled.push_back(path);
            return outcome::success();
        };
        desktop.on_start = [this](const std::vector<std::string>& arguments) {
            take_members_out(disk.resolve(arguments[arguments.size() - 2]));
            return true;
        };
    }

    void select(const std::vector<std::string>& directories) {
        state.selected_dirs.clear();
        for (const std::string& directory : directories) state.selected_dirs.push_back(directory);
        state.selected_dir_count = static_cast<std::int16_t>(directories.size());
    }

    // What has no living holder any more although nobody let it go; empty when all is well.
    std::vector<std::string> lost() const {
        std::set<std::string> alive;
        for (const std::string& path : paths)
            if (disk.has(path)) {
                const auto holds = held_by(path);
                alive.insert(holds.begin(), holds.end());
            }
        std::vector<std::string> missing;
        for (const std::string& content : contents)
            if (alive.count(content) == 0 && let_go.count(content) == 0)
                missing.push_back(content.substr(0, 20));
        return missing;
    }
    // Data files that are neither absent nor whole; empty when all is well.
    std::string broken_store() const {
        const std::string pairs = disk.content_of("/prog/相同文件.txt");
        if (!pairs.empty()) {
            std::size_t lines = 0;
            for (const char unit : pairs) lines += unit == '\n';
            if (!pairs.ends_with("\r\n") || lines < 2 || (lines - 2) % 3 != 0) return "相同文件.txt";
        }
        for (const char* name : {"文件清单.txt", "不相同文件.txt", "spasedir.txt", "run_history.txt",
                                 "filelist.xls", "filelist_txt_.txt", "tree_file_list.txt"}) {
            const std::string text = disk.content_of(std::string("/prog/") + name);
            if (!text.empty() && !text.ends_with("\r\n")) return name;
        }
        return {};
    }

    // Another program writes a file. What was there before is no loss of ours.
    void write(const std::string& path, const std::string& content) {
        if (holdings_.count(path) != 0)
            let_go_of(path);
        else
            paths.push_back(path);
        let_go.erase(content);
        contents.insert(content);
        holdings_[path] = {content};
        disk.add_file(path, content);
    }

    // A file leaves: whose content goes with it, and whether the user let it go as one without a twin.
    void note_departure(const std::string& path) {
        if (state.list_mode != 2) return;
        let_go_of(path);
    }

  private:
    // What has no other living holder than this one.
    void let_go_of(const std::string& path) {
        for (const std::string& content : held_by(path)) {
            bool elsewhere = false;
            for (const std::string& other : paths)
                elsewhere |= other != path && disk.has(other) && held_by(other).count(content) != 0;
            if (!elsewhere) let_go.insert(content);
        }
    }
    void add(const std::string& path, std::string content) {
        paths.push_back(path);
        contents.insert(content);
        holdings_[path] = {content};
        disk.add_file(path, std::move(content));
    }
    // What the archive tool does: the names of its list leave the archive, which is written anew.
    void take_members_out(const std::string& archive) {
        std::vector<zip_member>& members = zips_.at(archive);
        const std::string list = disk.content_of("/prog/delrarfile.txt");
        members_gone += std::erase_if(members, [&list](const zip_member& each) {
            return ("\r\n" + list).find("\r\n" + each.name + "\r\n") != std::string::npos;
        });
        // The archive as it was goes with the user's will; what was inside is asked of the new one.
        let_go.insert(disk.content_of(archive));
        const std::string image = zip_image(members);
        contents.insert(image);
        holdings_[archive] = {image};
        for (const zip_member& each : members) holdings_[archive].insert(each.data);
        disk.add_file(archive, image);
    }
    void add_zip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& members) {
        std::vector<zip_member>& stored = zips_[path];
        for (const auto& [name, content] : members) {
            zip_member member{
                .name = name, .size = static_cast<std::uint32_t>(content.size()), .data = content};
            member.crc = checksum(std::as_bytes(std::span(content)));
            stored.push_back(member);
            contents.insert(content);
            holdings_[path].insert(content);
        }
        const std::string image = zip_image(stored);
        paths.push_back(path);
        contents.insert(image);
        holdings_[path].insert(image);
        disk.add_file(path, image);
    }
    const std::set<std::string>& held_by(const std::string& path) const { return holdings_.at(path); }
    void erase_below(const std::string& path) {
        const std::string bare = path.back() == '/' ? path.substr(0, path.size() - 1) : path;
        for (const std::string& each : paths)
            if (each.starts_with(bare + "/")) disk.erase(each);
        disk.erase(bare);
    }

    std::map<std::string, std::set<std::string>> holdings_;
    std::map<std::string, std::vector<zip_member>> zips_;
};

}  // namespace corvane

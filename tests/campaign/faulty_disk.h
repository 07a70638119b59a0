// A disk that fails on purpose: the n-th call that can fail does, or every one from the n-th on. Everything
// else is done by the disk behind it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/campaign/fault_counter.h"
#include "tests/support/memory_file_system.h"

namespace corvane {

class faulty_disk : public file_system {
  public:
    explicit faulty_disk(memory_file_system& disk) : disk_(disk) {}

    fault_counter faults;

    char separator() const override { return disk_.separator(); }
    bool ignores_case() const override { return disk_.ignores_case(); }
    std::vector<volume> volumes() override { return disk_.volumes(); }
    outcome_with<directory_reader> open_directory(const std::string& path) override {
        if (fails()) return failure();
        auto opened = disk_.open_directory(path);
        if (!opened) return opened;
        return std::unique_ptr<directory_reader>(
            std::make_unique<faulty_directory>(*this, std::move(opened.object)));
    }
    path_attributes attributes(const std::string& path) override {
        return fails() ? path_attributes() : disk_.attributes(path);
    }
    outcome clear_attributes(const std::string& path) override {
        return fails() ? failure() : disk_.clear_attributes(path);
    }
    file_access access(const std::string& path) override {
        return fails() ? file_access() : disk_.access(path);
    }
    void restore_access(const std::string& path, const file_access& access) override {
        if (!fails()) disk_.restore_access(path, access);
    }
    std::int64_t now_ns() override { return disk_.now_ns(); }
    file_facts facts(std::string_view path) override { return fails() ? file_facts() : disk_.facts(path); }
    std::string resolve(const std::string& path) override { return fails() ? path : disk_.resolve(path); }
    std::vector<mounted_tree> mounted_trees() override { return disk_.mounted_trees(); }
    bool identity(const std::string& path, file_identity& identity) override {
        return !fails() && disk_.identity(path, identity);
    }
    bool is_recycle_directory(const std::string& path) override { return disk_.is_recycle_directory(path); }
    std::int64_t read_start(std::string_view path, std::span<std::byte> buffer,
                            std::size_t expected) override {
        return fails() ? -1 : disk_.read_start(path, buffer, expected);
    }
    outcome_with<file_reader> open_file(std::string_view path) override {
        if (fails()) return failure();
        auto opened = disk_.open_file(path);
        if (!opened) return opened;
        return std::unique_ptr<file_reader>(std::make_unique<faulty_reader>(*this, std::move(opened.object)));
    }
    outcome_with<file_writer> replace_file(const std::string& path) override {
        if (fails()) return failure();
        return writer(disk_.replace_file(path));
    }
    outcome_with<file_writer> overwrite_file(const std::string& path) override {
        if (fails()) return failure();
        return writer(disk_.overwrite_file(path));
    }
    outcome put_text(const std::string& path, std::string_view text) override {
        return fails() ? failure() : disk_.put_text(path, text);
    }
    bool can_write_into(const std::string& directory) override { return disk_.can_write_into(directory); }
    outcome make_directory(const std::string& path) override {
        return fails() ? failure() : disk_.make_directory(path);
    }
    bool is_own_directory(const std::string& path) override { return disk_.is_own_directory(path); }
    bool claim_directory(const std::string& directory) override { return disk_.claim_directory(directory); }
    outcome remove_file(const std::string& path, const file_facts& expected) override {
        return fails() ? failure() : disk_.remove_file(path, expected);
    }
    outcome remove_data_file(const std::string& path) override {
        return fails() ? failure() : disk_.remove_data_file(path);
    }

    bool fails() { return faults.fails(); }
    static outcome failure() { return outcome::failure("the disk failed"); }

  private:
    class faulty_directory : public directory_reader {
      public:
        faulty_directory(faulty_disk& disk, std::unique_ptr<directory_reader> inner)
            : disk_(disk), inner_(std::move(inner)) {}
        bool next(std::string_view& name, entry_kind& kind) override {
            broken_ = broken_ || disk_.fails();
            return !broken_ && inner_->next(name, kind);
        }
        bool failed() const override { return broken_ || inner_->failed(); }
        bool hidden() const override { return inner_->hidden(); }
        file_identity identity() const override { return inner_->identity(); }

      private:
        faulty_disk& disk_;
        std::unique_ptr<directory_reader> inner_;
        bool broken_ = false;
    };

    class faulty_reader : public file_reader {
      public:
        faulty_reader(faulty_disk& disk, std::unique_ptr<file_reader> inner)
            : disk_(disk), inner_(std::move(inner)) {}
        std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) override {
            return disk_.fails() ? -1 : inner_->read_at(offset, buffer);
        }
        void will_read(std::int64_t offset) override { inner_->will_read(offset); }
        void fetch(std::int64_t offset, std::int64_t length) override { inner_->fetch(offset, length); }

      private:
        faulty_disk& disk_;
        std::unique_ptr<file_reader> inner_;
    };

    class faulty_writer : public file_writer {
      public:
        faulty_writer(faulty_disk& disk, std::unique_ptr<file_writer> inner)
            : disk_(disk), inner_(std::move(inner)) {}
        outcome write(std::string_view bytes) override {
            return disk_.fails() ? failure() : inner_->write(bytes);
        }
        outcome write_at(std::int64_t offset, std::string_view bytes) override {
            return disk_.fails() ? failure() : inner_->write_at(offset, bytes);
        }
        outcome commit() override { return disk_.fails() ? failure() : inner_->commit(); }

      private:
        faulty_disk& disk_;
        std::unique_ptr<file_writer> inner_;
    };

    outcome_with<file_writer> writer(outcome_with<file_writer> opened) {
        if (!opened) return opened;
        return std::unique_ptr<file_writer>(std::make_unique<faulty_writer>(*this, std::move(opened.object)));
    }

    memory_file_system& disk_;
};

}  // namespace corvane

// A task while it runs. Opened where a task locks the others; closes bar, cancel button and lock at every way
// out. Every long task holds one.
#pragma once

namespace corvane {

class Tavrel;

class task_scope {
  public:
    // Locks the tasks. Inside another scope it does nothing: the outermost one opens and closes.
    explicit task_scope(Tavrel& form);
    ~task_scope() { close(); }
    task_scope(const task_scope&) = delete;
    task_scope& operator=(const task_scope&) = delete;

    // Closes before the end of the block, once. A program that is closing keeps its tasks locked.
    void close();

  private:
    Tavrel& form_;
    bool open_ = true;
};

}  // namespace corvane

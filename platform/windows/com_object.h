// References to objects of COM, and the use of COM by a thread. Used by what speaks to the shell of Windows.
#pragma once

#include <objbase.h>
#include <windows.h>

#include <utility>

namespace corvane {

template <class Interface>
class com_object {
  public:
    com_object() = default;
    explicit com_object(Interface* taken) : object_(taken) {}
    com_object(com_object&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    com_object& operator=(com_object&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~com_object() {
        if (object_ != nullptr) object_->Release();
    }

    explicit operator bool() const { return object_ != nullptr; }
    Interface* operator->() const { return object_; }
    Interface* get() const { return object_; }
    // Where a call puts a reference; holds nothing before.
    Interface** put() { return &object_; }
    void** put_any() { return reinterpret_cast<void**>(&object_); }

  private:
    Interface* object_ = nullptr;
};

// The thread may use COM while one lives, which it may have done before.
class com_use {
  public:
    com_use() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}
    ~com_use() {
        if (SUCCEEDED(result_)) CoUninitialize();
    }
    com_use(const com_use&) = delete;
    com_use& operator=(const com_use&) = delete;

  private:
    HRESULT result_;
};

}  // namespace corvane

#include "platform/windows/windows_recycle.h"

#include <windows.h>

#include <shellapi.h>
#include <shobjidl.h>

#include <algorithm>
#include <atomic>
#include <cstddef>

#include "platform/windows/com_object.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide_path.h"

namespace corvane {

namespace {

constexpr std::size_t batch_size = 1000;

outcome refused(DWORD number) {
    outcome failed = system_failure(number);
    failed.reason = "不能移到回收站。 " + failed.reason;
    return failed;
}

outcome refused_result(HRESULT result) {
    return refused(HRESULT_FACILITY(result) == FACILITY_WIN32 ? static_cast<DWORD>(HRESULT_CODE(result))
                                                              : static_cast<DWORD>(result));
}

// What becomes of one item.
class item_sink : public IFileOperationProgressSink {
  public:
    explicit item_sink(outcome& answer) : answer_(answer) {}
    virtual ~item_sink() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IFileOperationProgressSink;
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

    // Without the flag there is no bin for it, and it would be deleted for good.
    HRESULT STDMETHODCALLTYPE PreDeleteItem(DWORD flags, IShellItem*) override {
        if ((flags & TSF_DELETE_RECYCLE_IF_POSSIBLE) != 0) return S_OK;
        answer_ = refused(ERROR_NOT_SUPPORTED);
        is_refused_ = true;
        return E_ABORT;
    }
    HRESULT STDMETHODCALLTYPE PostDeleteItem(DWORD, IShellItem*, HRESULT result, IShellItem*) override {
        if (!is_refused_) answer_ = SUCCEEDED(result) ? outcome::success() : refused_result(result);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE StartOperations() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE FinishOperations(HRESULT) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PreRenameItem(DWORD, IShellItem*, LPCWSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PostRenameItem(DWORD, IShellItem*, LPCWSTR, HRESULT, IShellItem*) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE PreMoveItem(DWORD, IShellItem*, IShellItem*, LPCWSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PostMoveItem(DWORD, IShellItem*, IShellItem*, LPCWSTR, HRESULT,
                                           IShellItem*) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE PreCopyItem(DWORD, IShellItem*, IShellItem*, LPCWSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PostCopyItem(DWORD, IShellItem*, IShellItem*, LPCWSTR, HRESULT,
                                           IShellItem*) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE PreNewItem(DWORD, IShellItem*, LPCWSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PostNewItem(DWORD, IShellItem*, LPCWSTR, LPCWSTR, DWORD, HRESULT,
                                          IShellItem*) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE UpdateProgress(UINT, UINT) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResetTimer() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PauseTimer() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResumeTimer() override { return S_OK; }

  private:
    std::atomic<ULONG> count_{1};
    outcome& answer_;
    bool is_refused_ = false;
};

// Never a word to the user, and nothing is deleted for good because it is large. False: this system has no
// such operation.
bool move_batch(std::span<const std::string> paths, std::span<outcome> answers) {
    com_object<IFileOperation> operation;
    if (FAILED(CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_ALL, IID_IFileOperation,
                                operation.put_any())))
        return false;
    constexpr DWORD recycle_on_delete = 0x0008'0000;  // FOFX_RECYCLEONDELETE, from Windows 8 on
    constexpr DWORD quiet = FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI | FOF_NOCONFIRMMKDIR;
    if (FAILED(operation->SetOperationFlags(quiet | FOF_ALLOWUNDO | recycle_on_delete)) &&
        FAILED(operation->SetOperationFlags(quiet | FOF_ALLOWUNDO)))
        return false;
    bool any = false;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        answers[i] = refused(ERROR_CANCELLED);  // until the sink hears otherwise
        com_object<IShellItem> item;
        const std::wstring name = shell_path(paths[i]);
        if (name.empty()) {
            answers[i] = refused(ERROR_INVALID_NAME);
            continue;
        }
        const HRESULT found =
            SHCreateItemFromParsingName(name.c_str(), nullptr, IID_IShellItem, item.put_any());
        if (FAILED(found)) {
            answers[i] = refused_result(found);
            continue;
        }
        const com_object<item_sink> sink(new item_sink(answers[i]));
        const HRESULT queued = operation->DeleteItem(item.get(), sink.get());
        if (queued == E_NOTIMPL) return false;
        if (FAILED(queued))
            answers[i] = refused_result(queued);
        else
            any = true;
    }
    return !any || operation->PerformOperations() != E_NOTIMPL;
}

// The operation of earlier systems, one path at a time; it says only whether something went wrong. What it
// would delete for good it asks about, and without an answer the file stays.
outcome move_by_older_call(const std::string& path) {
    std::wstring name = shell_path(path);
    if (name.empty() || GetFileAttributesW(name.c_str()) == INVALID_FILE_ATTRIBUTES)
        return refused(ERROR_FILE_NOT_FOUND);
    name += L'\0';
    SHFILEOPSTRUCTW asked{};
    asked.wFunc = FO_DELETE;
    asked.pFrom = name.c_str();
    asked.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_WANTNUKEWARNING | FOF_SILENT | FOF_NOERRORUI;
    const int result = SHFileOperationW(&asked);
    if (result != 0) return refused(static_cast<DWORD>(result));
    return asked.fAnyOperationsAborted ? refused(ERROR_CANCELLED) : outcome::success();
}

// Answers at least one path; returns how many. An item that is refused ends the operation, and those behind
// it are asked for anew.
std::size_t move_some(std::span<const std::string> paths, std::span<outcome> answers) {
    if (!move_batch(paths, answers)) {
        for (std::size_t i = 0; i < paths.size(); ++i) answers[i] = move_by_older_call(paths[i]);
        return paths.size();
    }
    for (std::size_t i = 0; i < paths.size(); ++i)
        if (answers[i].number == ERROR_NOT_SUPPORTED) return i + 1;
    return paths.size();
}

}  // namespace

std::vector<outcome> move_to_bin(std::span<const std::string> paths) {
    const com_use com;
    std::vector<outcome> answers(paths.size());
    for (std::size_t done = 0; done < paths.size();) {
        const std::size_t count = std::min(batch_size, paths.size() - done);
        done += move_some(paths.subspan(done, count), std::span(answers).subspan(done, count));
    }
    return answers;
}

}  // namespace corvane

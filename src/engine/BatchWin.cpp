// The id of a batch and its own temporary folder.
#include "engine/Batch.h"

#include "engine/BatchEnd.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"

void clBatch::Begin(XString& chainText, const XString& codecName, const XString& encoderSettings) {
    RemoveFolder();
    TakeId();
    temporaryFolder = AddBackslash(TempFolder()) + L"Zt" + UnsignedText(batchId);
    MakeFolders(temporaryFolder);
    AddRequiredEffect(chainText, codecName, encoderSettings);
}

void clBatch::TakeId() {
    for (batchId = GetTickCount();; ++batchId) {
        const XString name = L"mutZtBatchID" + DecimalText(static_cast<std::int32_t>(batchId));
        mutex.Reset();
        SetLastError(0);
        const HANDLE made = CreateMutexW(nullptr, FALSE, name);
        const DWORD error = GetLastError();
        mutex.Reset(made);
        if (error != ERROR_ALREADY_EXISTS)
            return;
    }
}

void clBatch::RemoveFolder() {
    if (temporaryFolder.IsEmpty())
        return;
    DeleteTree(temporaryFolder);
    temporaryFolder.Clear();
}

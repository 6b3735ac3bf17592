#pragma once

#include <objbase.h>
#include <oleauto.h>

// Exported by oleaut32, declared by some headers only.
extern "C" void WINAPI SetOaNoCache(void);

/// Sees every allocation of COM memory of this process from its first use on. It is never revoked:
/// COM goes on calling a spy until the last block that it has seen is freed.
class ComMemorySpy : public IMallocSpy {
public:
    static ComMemorySpy& Instance() {
        static ComMemorySpy spy;
        return spy;
    }

    long Blocks() const { return blocks_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IMallocSpy;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // Lives as long as the process.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override {
        if (block != nullptr) ++blocks_;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, WINBOOL counted) override {
        if (block != nullptr && counted) --blocks_;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(WINBOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** newBlock,
                                        WINBOOL) override {
        *newBlock = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, WINBOOL) override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, WINBOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, WINBOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, WINBOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, WINBOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

private:
    ComMemorySpy() {
        // Strings are otherwise kept for reuse after they are freed.
        SetOaNoCache();
        CoRegisterMallocSpy(this);
    }

    long blocks_ = 0;
};

/// Counts the blocks of COM memory (strings, arrays) that were allocated since its construction
/// and not freed.
class ComMemoryCounter {
public:
    long BlocksInUse() const { return ComMemorySpy::Instance().Blocks() - before_; }

private:
    long before_ = ComMemorySpy::Instance().Blocks();
};

#pragma once
#include <cstddef>

namespace TMObjects {

// Intrusive reference count shared by every framework object. `new` gives a count of zero, so a
// fresh object is wrapped in a TLRefPtr at once (or AddRef'd by whoever keeps it).
class TLRefBase {
public:
    TLRefBase() = default;
    TLRefBase(const TLRefBase&) : mRefCount(0) {}
    TLRefBase& operator=(const TLRefBase&) { return *this; }
    virtual ~TLRefBase() = default;

    void AddRef() { ++mRefCount; }
    // Drops one reference; deletes the object and answers true when none is left.
    bool Release() {
        if (--mRefCount > 0) return false;
        delete this;
        return true;
    }
    int RefCount() const { return mRefCount; }

private:
    int mRefCount = 0;
};

template <class T>
class TLRefPtr {
public:
    TLRefPtr() = default;
    TLRefPtr(std::nullptr_t) {}
    TLRefPtr(T* p) : mPtr(p) { acquire(); }
    TLRefPtr(const TLRefPtr& o) : mPtr(o.mPtr) { acquire(); }
    TLRefPtr(TLRefPtr&& o) noexcept : mPtr(o.mPtr) { o.mPtr = nullptr; }
    template <class U>
    TLRefPtr(const TLRefPtr<U>& o) : mPtr(o.get()) {
        acquire();
    }
    ~TLRefPtr() { release(); }

    TLRefPtr& operator=(const TLRefPtr& o) {
        if (o.mPtr != mPtr) {
            T* old = mPtr;
            mPtr = o.mPtr;
            acquire();
            if (old) old->Release();
        }
        return *this;
    }
    TLRefPtr& operator=(TLRefPtr&& o) noexcept {
        if (this != &o) {
            release();
            mPtr = o.mPtr;
            o.mPtr = nullptr;
        }
        return *this;
    }
    TLRefPtr& operator=(T* p) { return *this = TLRefPtr(p); }

    T* get() const { return mPtr; }
    T* operator->() const { return mPtr; }
    T& operator*() const { return *mPtr; }
    explicit operator bool() const { return mPtr != nullptr; }
    bool IsNull() const { return mPtr == nullptr; }
    void reset() { release(); }

    template <class U>
    TLRefPtr<U> dynamicCast() const {
        return TLRefPtr<U>(dynamic_cast<U*>(mPtr));
    }

private:
    void acquire() {
        if (mPtr) mPtr->AddRef();
    }
    void release() {
        T* p = mPtr;
        mPtr = nullptr;
        if (p) p->Release();
    }
    T* mPtr = nullptr;
};

template <class T, class U>
bool operator==(const TLRefPtr<T>& a, const TLRefPtr<U>& b) {
    return a.get() == b.get();
}
template <class T, class U>
bool operator!=(const TLRefPtr<T>& a, const TLRefPtr<U>& b) {
    return a.get() != b.get();
}

}  // namespace TMObjects

// Reference counting of the platform's RefBase, compiled here with ThreadSanitizer. The
// platform library is not instrumented, so TSan could not see the ordering its atomics give
// (the last decStrong happens after every use), and would report every proxy's destruction.
// Same counting rules as the platform for objects with the default (strong) lifetime.
#include <utils/RefBase.h>

#include <atomic>

namespace android {

namespace {
constexpr int32_t kInitialStrong = 1 << 28;
}

class RefBase::weakref_impl : public RefBase::weakref_type {
public:
    explicit weakref_impl(RefBase* base) : mBase(base) {}
    std::atomic<int32_t> mStrong{kInitialStrong};
    std::atomic<int32_t> mWeak{0};
    std::atomic<int32_t> mFlags{0};
    RefBase* const mBase;
};

RefBase::RefBase() : mRefs(new weakref_impl(this)) {}

RefBase::~RefBase() {
    // Never strongly referenced: nobody else will free the counts.
    if (mRefs->mStrong.load(std::memory_order_relaxed) == kInitialStrong &&
        mRefs->mWeak.load(std::memory_order_relaxed) == 0) {
        delete mRefs;
    }
}

void RefBase::incStrong(const void* id) const {
    mRefs->incWeak(id);
    const int32_t c = mRefs->mStrong.fetch_add(1, std::memory_order_relaxed);
    if (c != kInitialStrong) return;
    mRefs->mStrong.fetch_sub(kInitialStrong, std::memory_order_relaxed);
    const_cast<RefBase*>(this)->onFirstRef();
}

void RefBase::decStrong(const void* id) const {
    weakref_impl* const refs = mRefs;
    // acq_rel rather than release plus a fence: TSan does not model stand-alone fences.
    const int32_t c = refs->mStrong.fetch_sub(1, std::memory_order_acq_rel);
    if (c == 1) {
        const_cast<RefBase*>(this)->onLastStrongRef(id);
        if ((refs->mFlags.load(std::memory_order_relaxed) & OBJECT_LIFETIME_MASK) ==
            OBJECT_LIFETIME_STRONG) {
            delete this;
        }
    }
    refs->decWeak(id);
}

void RefBase::forceIncStrong(const void* id) const {
    mRefs->incWeak(id);
    const int32_t c = mRefs->mStrong.fetch_add(1, std::memory_order_relaxed);
    if (c == kInitialStrong) mRefs->mStrong.fetch_sub(kInitialStrong, std::memory_order_relaxed);
    if (c == kInitialStrong || c == 0) const_cast<RefBase*>(this)->onFirstRef();
}

int32_t RefBase::getStrongCount() const { return mRefs->mStrong.load(std::memory_order_relaxed); }

RefBase* RefBase::weakref_type::refBase() const {
    return static_cast<const weakref_impl*>(this)->mBase;
}

void RefBase::weakref_type::incWeak(const void*) {
    static_cast<weakref_impl*>(this)->mWeak.fetch_add(1, std::memory_order_relaxed);
}

void RefBase::weakref_type::decWeak(const void*) {
    auto* impl = static_cast<weakref_impl*>(this);
    const int32_t c = impl->mWeak.fetch_sub(1, std::memory_order_acq_rel);
    if (c != 1) return;
    // Strong lifetime: the object went with its last strong reference; the counts go now.
    // An object that was never strongly referenced frees its counts in its destructor.
    if (impl->mStrong.load(std::memory_order_relaxed) != kInitialStrong) delete impl;
}

bool RefBase::weakref_type::attemptIncStrong(const void* id) {
    incWeak(id);
    auto* impl = static_cast<weakref_impl*>(this);
    int32_t c = impl->mStrong.load(std::memory_order_relaxed);
    while (c > 0) {
        if (impl->mStrong.compare_exchange_weak(c, c + 1, std::memory_order_relaxed)) break;
    }
    if (c <= 0) {
        decWeak(id);
        return false;
    }
    if (c == kInitialStrong) impl->mStrong.fetch_sub(kInitialStrong, std::memory_order_relaxed);
    return true;
}

bool RefBase::weakref_type::attemptIncWeak(const void*) {
    auto* impl = static_cast<weakref_impl*>(this);
    int32_t c = impl->mWeak.load(std::memory_order_relaxed);
    while (c > 0) {
        if (impl->mWeak.compare_exchange_weak(c, c + 1, std::memory_order_relaxed)) return true;
    }
    return false;
}

int32_t RefBase::weakref_type::getWeakCount() const {
    return static_cast<const weakref_impl*>(this)->mWeak.load(std::memory_order_relaxed);
}

void RefBase::weakref_type::printRefs() const {}
void RefBase::weakref_type::trackMe(bool, bool) {}

RefBase::weakref_type* RefBase::createWeak(const void* id) const {
    mRefs->incWeak(id);
    return mRefs;
}

RefBase::weakref_type* RefBase::getWeakRefs() const { return mRefs; }

void RefBase::extendObjectLifetime(int32_t mode) {
    mRefs->mFlags.fetch_or(mode, std::memory_order_relaxed);
}

void RefBase::onFirstRef() {}
void RefBase::onLastStrongRef(const void*) {}
bool RefBase::onIncStrongAttempted(uint32_t flags, const void*) {
    return (flags & FIRST_INC_STRONG) != 0;
}
void RefBase::onLastWeakRef(const void*) {}

}  // namespace android

// The service's order of virtual operations, for the proxy (PlayerImpl) and for the callback
// interface it calls (PlayerImplListener), and the way to read an operation's slot from the
// compiler. Shared by the layout report and the ABI check, so the order is written down once.
//
// The orders are core/player_operations.def and core/listener_operations.def, which declare
// the two classes too. The expected slot of an operation is its position in its list; the
// destructor pair follows the last one.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/PlayerImpl.h"

namespace service_slots {

// A pointer to a virtual member function holds the operation's byte offset in the table of
// virtual operations. The generic C++ ABI (x86-64) marks "virtual" with bit 0 of the pointer
// word (1 + 8 x slot); the ARM variant (AArch64) keeps the pointer word as 8 x slot and marks
// "virtual" with bit 0 of the adjustment word. Returns -1 for a non-virtual member.
template <typename Pmf>
long slotOf(Pmf pmf) {
    static_assert(sizeof(Pmf) == 2 * sizeof(void*), "two-word member function pointer");
    struct {
        uintptr_t ptr;
        intptr_t adj;
    } raw;
    std::memcpy(&raw, &pmf, sizeof raw);
#if defined(__aarch64__) || defined(__arm__)
    if ((raw.adj & 1) == 0) return -1;
    return static_cast<long>(raw.ptr / sizeof(void*));
#else
    if ((raw.ptr & 1) == 0) return -1;
    return static_cast<long>((raw.ptr - 1) / sizeof(void*));
#endif
}

// A class derived with one new virtual operation: that operation lands right after the
// base's last slot, which tells where the base's table (destructor pair included) ends.
struct ProxyProbe : PlayerImpl {
    virtual void probe();
};
struct ListenerProbe : PlayerImplListener {
    virtual void probe();
};

}  // namespace service_slots

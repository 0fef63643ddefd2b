// The workstation's display library: records what is asked of it.
#include "surface/VTvDisaplyImpl.h"

#include <atomic>
#include <cstring>
#include <mutex>

#include "tvdisplay_host.h"

namespace tvdisplay_host {
namespace {
std::mutex gLock;
std::vector<DisplayCall> gCalls;
int32_t gWindowId = 1;
uint8_t gCloseResult = 1;
std::atomic<int> gMade{0};
}  // namespace

void setWindowId(int32_t id) {
    std::lock_guard<std::mutex> guard(gLock);
    gWindowId = id;
}

void setCloseResult(uint8_t result) {
    std::lock_guard<std::mutex> guard(gLock);
    gCloseResult = result;
}

std::vector<DisplayCall> calls() {
    std::lock_guard<std::mutex> guard(gLock);
    return gCalls;
}

void clearCalls() {
    std::lock_guard<std::mutex> guard(gLock);
    gCalls.clear();
}

int displaysMade() { return gMade.load(); }

}  // namespace tvdisplay_host

using namespace tvdisplay_host;

// A vendor's display object keeps state in itself although the library's declaration shows
// no members; this one fills as many bytes as such a vendor class might, so a library that
// made it in room of the declaration's size alone is caught writing past it (the sanitizer
// build reports the overflow).
constexpr size_t kVendorStateBytes = 512;

VTvDisaplyImpl::VTvDisaplyImpl() {
    std::memset(reinterpret_cast<unsigned char*>(this), 0xa5, kVendorStateBytes);
    gMade.fetch_add(1);
}

int32_t VTvDisaplyImpl::openTvDisplay(const android::sp<android::Surface>& surface, WIN_DEV type,
                                      bool flag) {
    std::lock_guard<std::mutex> guard(gLock);
    gCalls.push_back(DisplayCall{true, surface.get(), static_cast<int32_t>(type), flag});
    return gWindowId;
}

uint8_t VTvDisaplyImpl::closeTvDisplay(const android::sp<android::Surface>& surface) {
    std::lock_guard<std::mutex> guard(gLock);
    gCalls.push_back(DisplayCall{false, surface.get(), 0, false});
    return gCloseResult;
}

// A display library after an update that turned the window type of openTvDisplay into a plain
// int: the symbol our library imports is gone, another one with the same name is there.
#include <gui/Surface.h>
#include <utils/StrongPointer.h>

#include <cstdint>

class VTvDisaplyImpl {
public:
    VTvDisaplyImpl();
    int32_t openTvDisplay(const android::sp<android::Surface>& surface, int type, bool flag);
    uint8_t closeTvDisplay(const android::sp<android::Surface>& surface);
};

VTvDisaplyImpl::VTvDisaplyImpl() = default;

int32_t VTvDisaplyImpl::openTvDisplay(const android::sp<android::Surface>&, int, bool) {
    return -1;
}

uint8_t VTvDisaplyImpl::closeTvDisplay(const android::sp<android::Surface>&) { return 0; }

#include <gui/Surface.h>

namespace android {

IGraphicBufferProducer::IGraphicBufferProducer() = default;
IGraphicBufferProducer::~IGraphicBufferProducer() = default;

Surface::Surface(const sp<IGraphicBufferProducer>& producer, uint64_t uniqueId)
    : mProducer(producer), mUniqueId(uniqueId) {}

Surface::~Surface() = default;

sp<IGraphicBufferProducer> Surface::getIGraphicBufferProducer() const { return mProducer; }

status_t Surface::getUniqueId(uint64_t* outId) const {
    *outId = mUniqueId;
    return NO_ERROR;
}

}  // namespace android

// Workstation stand-in for the platform's native Surface: the two members the video
// surface binding calls, plus a constructor that lets a test or the simulator choose the
// producer (possibly none) and the unique id.
#pragma once

#include <cstdint>

#include <gui/IGraphicBufferProducer.h>
#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/StrongPointer.h>

namespace android {

class Surface : public RefBase {
public:
    Surface(const sp<IGraphicBufferProducer>& producer, uint64_t uniqueId);
    ~Surface() override;

    sp<IGraphicBufferProducer> getIGraphicBufferProducer() const;
    status_t getUniqueId(uint64_t* outId) const;

private:
    sp<IGraphicBufferProducer> mProducer;
    uint64_t mUniqueId;
};

}  // namespace android

// Workstation stand-in for the platform's buffer producer interface: only what the video
// surface binding touches (its reference count).
#pragma once

#include <utils/RefBase.h>

namespace android {

class IGraphicBufferProducer : public virtual RefBase {
public:
    IGraphicBufferProducer();
    ~IGraphicBufferProducer() override;
};

}  // namespace android

// The proxy class of the workstation's player service library: the non-virtual members the
// bridge imports by name, and a do-nothing body for every operation (the workstation's
// proxies, the simulated TV and the test double, override what they serve).
#include "core/PlayerImpl.h"

#include <limits>
#include <memory>
#include <tuple>

#include "playerimpl_host/host_player.h"

PlayerImpl::PlayerImpl() = default;
PlayerImpl::~PlayerImpl() = default;
PlayerImplListener::~PlayerImplListener() = default;

void PlayerImpl::disconnect() {
    if (auto* self = dynamic_cast<host::HostPlayer*>(this)) {
        self->mDisconnected.store(true);
        host::HostPlayer::sDisconnects.fetch_add(1);
        self->onDisconnect();
    }
}

void PlayerImpl::setListener(const android::sp<PlayerImplListener>& listener) {
    if (auto* self = dynamic_cast<host::HostPlayer*>(this)) {
        {
            std::lock_guard<std::mutex> guard(self->mListenerLock);
            self->mListener = listener;
        }
        self->onListenerChanged();
    }
}

// Every operation answers nothing: zero, false, an empty text.
#define PIJ_PLAYER_OP(result, name, parameters, arguments)  \
    result PlayerImpl::name parameters {                    \
        static_cast<void>(std::forward_as_tuple arguments); \
        return result();                                    \
    }
#define PIJ_PLAYER_PLACEHOLDER(name) \
    void PlayerImpl::name() {}
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER

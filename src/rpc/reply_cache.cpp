#include "rpc/reply_cache.h"

#include <algorithm>

std::span<const char> ReplyCache::find(const sockaddr_in &peer, std::span<const char> request,
                                       Waited now) const {
    for (const Kept &kept : kept_)
        if (kept.request_length == request.size() && kept.peer.sin_port == peer.sin_port &&
            kept.peer.sin_addr.s_addr == peer.sin_addr.s_addr && now - kept.time < lifetime &&
            std::equal(request.begin(), request.end(), kept.request.begin()))
            return std::span(kept.reply).first(kept.reply_length);
    return {};
}

void ReplyCache::keep(const sockaddr_in &peer, std::span<const char> request, std::span<const char> reply,
                      Waited now) {
    if (request.size() > longest_request || reply.size() > longest_reply)
        return;
    Kept &kept = kept_.at(oldest_);
    oldest_ = (oldest_ + 1) % most;
    kept.peer = peer;
    kept.time = now;
    kept.request_length = request.size();
    kept.reply_length = reply.size();
    std::copy(request.begin(), request.end(), kept.request.begin());
    std::copy(reply.begin(), reply.end(), kept.reply.begin());
}

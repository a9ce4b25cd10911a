#include <atomic>
#include <dlfcn.h>
#include <netdb.h>
#include <semaphore>
#include <string_view>

#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/control.h"

static std::counting_semaphore<> released(0);
static std::atomic<bool> hanging = false;

/// Stands before the system's own for all of this program: one name is for long neither found nor not found.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found) {
    if (name != nullptr && std::string_view(name) == "lost.example") {
        hanging = true;
        (void)released.try_acquire_for(std::chrono::seconds(20));
        return EAI_AGAIN;
    }
    static const auto kSystems = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return kSystems(name, service, hints, found);
}

namespace pondera {

TEST(NameLookup, OneThatHangsIsBoundedAndCanBeCancelled) {
    Control quick({.connect = std::chrono::seconds(1), .retries = {}});
    quick.inet.set_host(u"lost.example"_s);
    EXPECT_EQ(quick.run(u"DIR"_s), kTimedOut);

    const BadServer server;
    for (const QString& scheme : {QString(), u"sftp://"_s}) {
        hanging = false;
        Control patient;
        patient.inet.set_host(scheme + u"lost.example"_s);
        patient.cancel(u"DIR"_s, [] { return hanging.load(); });
        patient.inet.set_host(server.host());
        patient.expect_quick(u"MKDIR x"_s);
    }
    released.release(3);  // as many as hang
}

}  // namespace pondera

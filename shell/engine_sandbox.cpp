#include "shell/engine_sandbox.h"

#include <QByteArray>

#include <cstdio>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace pondera {

void set_up_engine_sandbox() {
#ifdef Q_OS_UNIX
    if (geteuid() != 0) return;
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    std::fputs("Pondera runs as root: the web engine's sandbox is switched off.\n", stderr);
#endif
}

}  // namespace pondera

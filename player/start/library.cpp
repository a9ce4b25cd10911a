#include "player/start/library.h"

#include <cstdio>
#include <dlfcn.h>

namespace pondera {

void* function_of_library(const std::filesystem::path& library, const char* name) {
    void* loaded = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* function = loaded == nullptr ? nullptr : dlsym(loaded, name);
    if (function == nullptr) std::fprintf(stderr, "%s\n", dlerror());
    return function;
}

}  // namespace pondera

#include "platform/MovieLibrary.h"

#include <dlfcn.h>

#include <cstdio>

#include "platform/Application.h"

const MovieLibrary& MovieLibrary::Installed() {
    static const MovieLibrary& opened = []() -> const MovieLibrary& {
        std::filesystem::path file = Application::ExecutableFile()->Path();
        file.replace_filename(MOVIE_MODULE);
        // The module is never closed, because some of its libraries crash when unloaded.
        void* const module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
        void* const entry = module ? dlsym(module, "MovieLibraryOfModule") : nullptr;
        if (entry) return *reinterpret_cast<decltype(&MovieLibraryOfModule)>(entry)();
        std::fprintf(stderr, "Movies can't be made: %s\n", dlerror());
        static const MovieLibrary none;
        return none;
    }();
    return opened;
}

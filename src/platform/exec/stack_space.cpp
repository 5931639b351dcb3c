#include "platform/exec/stack_space.h"

#include <pthread.h>

#include <cstdint>

namespace {

uintptr_t LookUpStackBottom()
{
    pthread_attr_t attributes;
    void* bottom = nullptr;
    size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
        pthread_attr_getstack(&attributes, &bottom, &size);
        pthread_attr_destroy(&attributes);
    }
    return reinterpret_cast<uintptr_t>(bottom);
}

} // namespace

size_t StackSpaceLeft()
{
    static thread_local const uintptr_t bottom = LookUpStackBottom();
    const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
    return here > bottom ? here - bottom : 0;
}

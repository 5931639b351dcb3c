#include "platform/exec/stack_space.h"

#include <pthread.h>

uintptr_t LookUpStackBottom()
{
    pthread_attr_t attributes;
    void* bottom = nullptr;
    size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
        pthread_attr_getstack(&attributes, &bottom, &size);
        pthread_attr_destroy(&attributes);
    }
    // Without the bounds the guard never trips: 1 is below every frame.
    return bottom ? reinterpret_cast<uintptr_t>(bottom) : 1;
}

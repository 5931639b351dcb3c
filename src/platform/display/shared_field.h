#pragma once
// A field of a platform record that both the display side and the task that
// owns the record touch: a window's box and event mask, a gadget's flags, a
// scroller's pots. It reads and writes like the integer it holds, each access
// atomic, and copies by value, so records such as gadgets stay plain
// templates that can be copied and initialised field by field.
//
// Values are read one at a time: a reader may see a new width with an old
// height for a moment; the message that announces a change (IDCMP_NEWSIZE)
// comes after all its fields are written.
#include <atomic>

template <typename T>
class Shared {
public:
    constexpr Shared(T value = T{}) noexcept : value_(value) {}
    Shared(const Shared& other) noexcept : value_(other.load()) {}
    Shared& operator=(const Shared& other) noexcept
    {
        store(other.load());
        return *this;
    }
    Shared& operator=(T value) noexcept
    {
        store(value);
        return *this;
    }

    operator T() const noexcept { return load(); }
    T load() const noexcept { return value_.load(std::memory_order_acquire); }
    void store(T value) noexcept { value_.store(value, std::memory_order_release); }

    Shared& operator|=(T bits) noexcept
    {
        value_.fetch_or(bits, std::memory_order_acq_rel);
        return *this;
    }
    Shared& operator&=(T bits) noexcept
    {
        value_.fetch_and(bits, std::memory_order_acq_rel);
        return *this;
    }

private:
    std::atomic<T> value_;
};

#include "services/messages.h"

#include <atomic>
#include <cassert>

#include "platform/locale/catalog.h"
#include "services/builtin_messages.h"

namespace {

// Set before other processes start and cleared after they end; atomic so
// that the hand-over to them needs no other synchronisation.
std::atomic<Catalog*> OpenedCatalog{nullptr};

} // namespace

const char* GetString(MessageId id)
{
    const char* builtIn = GetBuiltInString(id);
    const Catalog* catalog = OpenedCatalog.load(std::memory_order_acquire);
    if (catalog == nullptr || !IsValidMessageId(id))
        return builtIn;
    // The catalog numbers messages one lower: message 0 asks for string -1,
    // which no catalog holds, so "MAIN" stays as it is.
    return GetCatalogStr(catalog, static_cast<int>(id) - 1, builtIn);
}

bool OpenMessageCatalog(const char* directory)
{
    assert(OpenedCatalog.load() == nullptr);
    Catalog* catalog = OpenCatalog(directory, MessageCatalogName, MessageCatalogVersion);
    OpenedCatalog.store(catalog, std::memory_order_release);
    return catalog != nullptr;
}

void CloseMessageCatalog()
{
    CloseCatalog(OpenedCatalog.exchange(nullptr, std::memory_order_acq_rel));
}

#include "platform/display/headless/headless_display.h"

#include "platform/display/headless/headless_peer.h"
#include "platform/exec/tasks.h"

#include <strings.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

namespace {

// A font of the backend: the one measure under the name it was asked by.
struct HeadlessFont : TextFont {
    std::string name;
};

bool EndsWith(const char* text, const char* suffix)
{
    size_t length = std::strlen(text);
    size_t suffixLength = std::strlen(suffix);
    return length >= suffixLength && strcasecmp(text + length - suffixLength, suffix) == 0;
}

int GridColumns(int width)
{
    return (width - HeadlessDisplay::kBorderLeft - HeadlessDisplay::kBorderRight) / HeadlessDisplay::kFontWidth;
}

int GridRows(int height)
{
    return (height - HeadlessDisplay::kBorderTop - HeadlessDisplay::kBorderBottom) /
           (HeadlessDisplay::kFontHeight + 1);
}

} // namespace

HeadlessDisplay::HeadlessDisplay()
    : clockMicros_(1000ull * 1000000ull)
{
    screenAttr_.ta_Name = "topaz.font";
    screenAttr_.ta_YSize = kFontHeight;
    screenFont_.tf_XSize = kFontWidth;
    screenFont_.tf_YSize = kFontHeight;
    screenFont_.tf_Baseline = kFontBaseline;
    screenFont_.tf_Name = screenAttr_.ta_Name;
    screen_.Width = kScreenWidth;
    screen_.Height = kScreenHeight;
    screen_.BarHeight = kBorderTop - 1;
    screen_.WBorTop = kBorderTop;
    screen_.WBorLeft = kBorderLeft;
    screen_.WBorRight = kBorderRight;
    screen_.WBorBottom = kBorderBottom;
    screen_.Title = "Workbench";
    screen_.Font = &screenAttr_;
    screen_.RastPort.Font = &screenFont_;
    // The screen's own four pens: grey, black, white and blue.
    screen_.ColorMap = GetColorMap(256);
    SetRGB32CM(screen_.ColorMap, 0, 0xAAAAAAAA, 0xAAAAAAAA, 0xAAAAAAAA);
    SetRGB32CM(screen_.ColorMap, 1, 0, 0, 0);
    SetRGB32CM(screen_.ColorMap, 2, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF);
    SetRGB32CM(screen_.ColorMap, 3, 0x66666666, 0x88888888, 0xBBBBBBBB);
}

HeadlessDisplay::~HeadlessDisplay()
{
    FreeColorMap(screen_.ColorMap);
}

void HeadlessDisplay::SetDisplayLoop(std::function<void()> loop)
{
    std::lock_guard<std::mutex> hold(lock_);
    loop_ = std::move(loop);
}

bool HeadlessDisplay::ProgramEnded() const
{
    std::lock_guard<std::mutex> hold(lock_);
    return ended_;
}

int HeadlessDisplay::Run(std::function<void()> mainTask)
{
    std::function<void()> loop;
    {
        std::lock_guard<std::mutex> hold(lock_);
        ended_ = false;
        loop = loop_;
    }
    Task* task = CreateNewProc("Tavrel", [this, mainTask = std::move(mainTask)] {
        mainTask();
        std::lock_guard<std::mutex> hold(lock_);
        ended_ = true;
        endedChanged_.notify_all();
    });
    if (!task) {
        std::lock_guard<std::mutex> hold(lock_);
        ended_ = true;
        return 1;
    }
    if (loop)
        loop();
    std::unique_lock<std::mutex> hold(lock_);
    endedChanged_.wait(hold, [this] { return ended_; });
    return 0;
}

Screen* HeadlessDisplay::LockPubScreen(const char* name)
{
    if (name && strcasecmp(name, "Workbench") != 0)
        return nullptr;
    std::lock_guard<std::mutex> hold(lock_);
    ++screenLocks_;
    return &screen_;
}

void HeadlessDisplay::UnlockPubScreen(Screen* screen)
{
    std::lock_guard<std::mutex> hold(lock_);
    if (screen == &screen_ && screenLocks_ > 0)
        --screenLocks_;
}

TextFont* HeadlessDisplay::OpenFont(const TextAttr& attr)
{
    if (!attr.ta_Name || !EndsWith(attr.ta_Name, ".font"))
        return nullptr;
    auto* font = new (std::nothrow) HeadlessFont;
    if (!font)
        return nullptr;
    font->name = attr.ta_Name;
    font->tf_XSize = kFontWidth;
    font->tf_YSize = kFontHeight;
    font->tf_Baseline = kFontBaseline;
    font->tf_Name = font->name.c_str();
    return font;
}

void HeadlessDisplay::CloseFont(TextFont* font)
{
    if (font != &screenFont_)
        delete static_cast<HeadlessFont*>(font);
}

void HeadlessDisplay::SystemImageSize(uint32_t which, int16_t height, int16_t* width, int16_t* imageHeight)
{
    int16_t w = 16;
    int16_t h = 10;
    switch (which) {
    case SIZEIMAGE:
        w = kBorderRight;
        h = kBorderBottom;
        break;
    case DEPTHIMAGE:
    case CLOSEIMAGE:
        w = 23;
        h = height > 0 ? height : kBorderTop;
        break;
    case UPIMAGE:
    case DOWNIMAGE:
        w = kBorderRight;
        h = 11;
        break;
    default:
        break;
    }
    *width = w;
    *imageHeight = h;
}

HeadlessDisplay::Peer* HeadlessDisplay::Find(const Window* window) const
{
    if (std::find(windows_.begin(), windows_.end(), window) == windows_.end())
        return nullptr;
    return static_cast<Peer*>(window->Peer);
}

bool HeadlessDisplay::OpenWindow(Window* window)
{
    auto* peer = new (std::nothrow) Peer;
    if (!peer)
        return false;
    window->BorderLeft = kBorderLeft;
    window->BorderTop = kBorderTop;
    window->BorderRight = kBorderRight;
    window->BorderBottom = kBorderBottom;
    peer->titleWindow = !(window->Flags & (WFLG_CLOSEGADGET | WFLG_SIZEGADGET)) && !window->FirstGadget;
    peer->title = window->Title ? window->Title : "";
    peer->screenTitle = window->ScreenTitle ? window->ScreenTitle : "";
    peer->grid.Resize(GridColumns(window->Width), GridRows(window->Height));
    window->Peer = peer;
    window->WindowPort.Surface = &peer->grid;
    {
        std::lock_guard<std::mutex> hold(lock_);
        windows_.push_back(window);
    }
    if (window->Flags & WFLG_ACTIVATE)
        Activate(window);
    return true;
}

void HeadlessDisplay::CloseWindow(Window* window)
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    if (!peer)
        return;
    std::erase(windows_, window);
    if (active_ == window)
        active_ = nullptr;
    window->WindowPort.Surface = nullptr;
    window->Peer = nullptr;
    delete peer;
}

void HeadlessDisplay::ChangeWindowBox(Window* window, int left, int top, int width, int height)
{
    bool moved = false;
    bool resized = false;
    IntuiMessage newSize;
    {
        std::lock_guard<std::mutex> hold(lock_);
        Peer* peer = Find(window);
        if (!peer)
            return;
        moved = left != window->LeftEdge || top != window->TopEdge;
        resized = width != window->Width || height != window->Height;
        window->LeftEdge = static_cast<int16_t>(left);
        window->TopEdge = static_cast<int16_t>(top);
        window->Width = static_cast<int16_t>(width);
        window->Height = static_cast<int16_t>(height);
        peer->grid.Resize(GridColumns(width), GridRows(height));
        newSize = Event(IDCMP_NEWSIZE, 0, 0);
    }
    if (resized)
        PostWindowMessage(window, newSize);
    if (moved || resized) {
        newSize.Class = IDCMP_CHANGEWINDOW;
        PostWindowMessage(window, newSize);
    }
}

// Headless windows have no depth order and no pointer to show: the front,
// and the back are what the records say.
void HeadlessDisplay::WindowToFront(Window*)
{
}

void HeadlessDisplay::WindowToBack(Window*)
{
}

void HeadlessDisplay::GadgetsChanged(Window*)
{
}

void HeadlessDisplay::MenuStripChanged(Window* window)
{
    std::lock_guard<std::mutex> hold(lock_);
    if (Peer* peer = Find(window))
        peer->menus = window->MenuStrip;
}

void HeadlessDisplay::ActivateWindow(Window* window)
{
    Activate(window);
}

void HeadlessDisplay::SetWindowTitles(Window* window, const char* windowTitle, const char* screenTitle)
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    if (!peer)
        return;
    if (windowTitle)
        peer->title = windowTitle;
    if (screenTitle)
        peer->screenTitle = screenTitle;
}

void HeadlessDisplay::SetBusyPointer(Window* window, bool busy, bool)
{
    std::lock_guard<std::mutex> hold(lock_);
    if (Peer* peer = Find(window))
        peer->busy = busy;
}

void HeadlessDisplay::DisplayBeep(Screen*)
{
    std::lock_guard<std::mutex> hold(lock_);
    ++beeps_;
}

int HeadlessDisplay::EasyRequest(Window*, const char* title, const char* body, const char*)
{
    std::fprintf(stderr, "%s: %s\n", title, body);
    return 0;
}

void HeadlessDisplay::CurrentTime(uint32_t* seconds, uint32_t* micros)
{
    uint64_t now = clockMicros_.load();
    *seconds = static_cast<uint32_t>(now / 1000000);
    *micros = static_cast<uint32_t>(now % 1000000);
}

uint32_t HeadlessDisplay::DoubleClickMicros()
{
    return kDoubleClickMicros;
}

std::vector<Window*> HeadlessDisplay::Windows() const
{
    std::lock_guard<std::mutex> hold(lock_);
    return windows_;
}

Window* HeadlessDisplay::ActiveWindow() const
{
    std::lock_guard<std::mutex> hold(lock_);
    return active_;
}

Cell HeadlessDisplay::CellAt(const Window* window, int column, int row) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer ? peer->grid.At(column, row) : Cell{};
}

std::string HeadlessDisplay::RowText(const Window* window, int row) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer ? peer->grid.RowText(row) : std::string();
}

int HeadlessDisplay::Columns(const Window* window) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer ? peer->grid.Columns() : 0;
}

int HeadlessDisplay::Rows(const Window* window) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer ? peer->grid.Rows() : 0;
}

std::string HeadlessDisplay::Title(const Window* window) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer ? peer->title : std::string();
}

std::string HeadlessDisplay::ScreenTitle(const Window* window) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer ? peer->screenTitle : std::string();
}

bool HeadlessDisplay::IsTitleWindow(const Window* window) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer && peer->titleWindow;
}

bool HeadlessDisplay::IsBusy(const Window* window) const
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(window);
    return peer && peer->busy;
}

int HeadlessDisplay::BeepCount() const
{
    std::lock_guard<std::mutex> hold(lock_);
    return beeps_;
}

int HeadlessDisplay::ScreenLocks() const
{
    std::lock_guard<std::mutex> hold(lock_);
    return screenLocks_;
}

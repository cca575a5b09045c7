#include "x11windowfacts.h"

#include <QSysInfo>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {
// Longest property read, in 32-bit units; an icon of 512 x 512 and its size fit.
constexpr uint32_t MaxIconLength = 512 * 512 + 2;
constexpr uint32_t MaxTextLength = 256;
constexpr int PropertiesPerWindow = 8;

using Reply = std::unique_ptr<xcb_get_property_reply_t, decltype(&free)>;

xcb_get_property_cookie_t ask(X11Connection& x11, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                              uint32_t length)
{
    return xcb_get_property(x11.connection(), 0, window, property, type, 0, length);
}

Reply answer(X11Connection& x11, xcb_get_property_cookie_t cookie, bool* failed = nullptr)
{
    xcb_generic_error_t* error = nullptr;
    Reply reply(xcb_get_property_reply(x11.connection(), cookie, &error), &free);
    if (error) {
        free(error);
        if (failed)
            *failed = true;
    }
    return reply;
}

QList<quint32> cardinals(const Reply& reply)
{
    if (!reply || reply->format != 32)
        return {};
    const auto* values = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return QList<quint32>(values, values + xcb_get_property_value_length(reply.get()) / 4);
}

QByteArray bytes(const Reply& reply)
{
    if (!reply || reply->format != 8)
        return QByteArray();
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

QString text(const Reply& reply)
{
    QByteArray value = bytes(reply);
    const qsizetype end = value.indexOf('\0');
    return QString::fromUtf8(end >= 0 ? value.left(end) : value);
}

bool countsOnTaskbar(X11Connection& x11, const QList<quint32>& types, const QList<quint32>& states)
{
    if (states.contains(x11.ewmh()->_NET_WM_STATE_SKIP_TASKBAR))
        return false;
    const xcb_ewmh_connection_t* e = x11.ewmh();
    const xcb_atom_t known[] = {e->_NET_WM_WINDOW_TYPE_NORMAL,  e->_NET_WM_WINDOW_TYPE_DIALOG,
                                e->_NET_WM_WINDOW_TYPE_DESKTOP, e->_NET_WM_WINDOW_TYPE_DOCK,
                                e->_NET_WM_WINDOW_TYPE_TOOLBAR, e->_NET_WM_WINDOW_TYPE_MENU,
                                e->_NET_WM_WINDOW_TYPE_UTILITY, e->_NET_WM_WINDOW_TYPE_SPLASH};
    // The first type the list gives that is known decides; without one a window is normal (or,
    // when transient, a dialog): both count.
    for (quint32 type : types) {
        if (std::find(std::begin(known), std::end(known), type) != std::end(known))
            return type == e->_NET_WM_WINDOW_TYPE_NORMAL || type == e->_NET_WM_WINDOW_TYPE_DIALOG;
    }
    return true;
}
} // namespace

namespace X11Windows {
std::optional<QList<xcb_window_t>> clientList(X11Connection& x11)
{
    bool failed = false;
    const Reply reply =
        answer(x11, ask(x11, x11.root(), x11.ewmh()->_NET_CLIENT_LIST, XCB_ATOM_WINDOW, 1 << 16), &failed);
    if (failed || !reply || reply->type == XCB_ATOM_NONE)
        return std::nullopt;
    return cardinals(reply);
}

xcb_window_t activeWindow(X11Connection& x11)
{
    const QList<quint32> values =
        cardinals(answer(x11, ask(x11, x11.root(), x11.ewmh()->_NET_ACTIVE_WINDOW, XCB_ATOM_WINDOW, 1)));
    return values.isEmpty() ? xcb_window_t(XCB_WINDOW_NONE) : values.first();
}

QList<X11WindowFacts> readFacts(X11Connection& x11, const QList<xcb_window_t>& windows)
{
    const xcb_ewmh_connection_t* e = x11.ewmh();
    QList<xcb_get_property_cookie_t> cookies;
    cookies.reserve(windows.size() * PropertiesPerWindow);
    for (xcb_window_t window : windows) {
        cookies << ask(x11, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, MaxTextLength)
                << ask(x11, window, e->_NET_WM_PID, XCB_ATOM_CARDINAL, 1)
                << ask(x11, window, e->_NET_WM_WINDOW_TYPE, XCB_ATOM_ATOM, 32)
                << ask(x11, window, e->_NET_WM_STATE, XCB_ATOM_ATOM, 32)
                << ask(x11, window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 1)
                << ask(x11, window, x11.gtkApplicationId(), XCB_GET_PROPERTY_TYPE_ANY, MaxTextLength)
                << ask(x11, window, x11.kdeDesktopFile(), XCB_GET_PROPERTY_TYPE_ANY, MaxTextLength)
                << ask(x11, window, x11.wmClientMachine(), XCB_GET_PROPERTY_TYPE_ANY, MaxTextLength);
    }
    static const QString hostName = QSysInfo::machineHostName();
    QList<X11WindowFacts> facts(windows.size());
    for (qsizetype i = 0; i < windows.size(); ++i) {
        bool failed = false;
        std::vector<Reply> replies;
        for (int k = 0; k < PropertiesPerWindow; ++k)
            replies.push_back(answer(x11, cookies[i * PropertiesPerWindow + k], &failed));
        X11WindowFacts& f = facts[i];
        f.exists = !failed;
        if (failed)
            continue;
        const QList<QByteArray> wmClass = bytes(replies[0]).split('\0');
        f.names.instance = QString::fromLocal8Bit(wmClass.value(0));
        f.names.wmClass = QString::fromLocal8Bit(wmClass.value(1));
        const QList<quint32> pid = cardinals(replies[1]);
        const QString machine = text(replies[7]);
        // A process id means nothing on another machine.
        if (!pid.isEmpty() && (machine.isEmpty() || machine == hostName))
            f.names.pid = pid.first();
        const QList<quint32> transient = cardinals(replies[4]);
        f.transientFor = transient.isEmpty() ? xcb_window_t(XCB_WINDOW_NONE) : transient.first();
        f.counts = countsOnTaskbar(x11, cardinals(replies[2]), cardinals(replies[3]));
        f.names.gtkApplicationId = text(replies[5]);
        f.names.kdeDesktopFile = text(replies[6]);
    }
    return facts;
}

QImage iconFromCardinals(const quint32* data, size_t count, int preferredSize)
{
    const quint32* best = nullptr;
    quint32 bestWidth = 0, bestHeight = 0;
    size_t offset = 0;
    while (offset + 2 <= count) {
        const quint32 width = data[offset], height = data[offset + 1];
        if (width == 0 || height == 0 || width > 4096 || height > 4096 ||
            quint64(width) * height > count - offset - 2)
            break;
        const quint32 size = std::max(width, height), bestSize = std::max(bestWidth, bestHeight);
        // Prefer the smallest at least as large as wanted; failing that, the largest.
        const bool better =
            !best || (size >= quint32(preferredSize) ? bestSize < quint32(preferredSize) || size < bestSize
                                                     : bestSize < quint32(preferredSize) && size > bestSize);
        if (better) {
            best = data + offset + 2;
            bestWidth = width;
            bestHeight = height;
        }
        offset += 2 + size_t(width) * height;
    }
    if (!best)
        return QImage();
    QImage image(int(bestWidth), int(bestHeight), QImage::Format_ARGB32);
    for (quint32 y = 0; y < bestHeight; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(int(y)));
        for (quint32 x = 0; x < bestWidth; ++x)
            line[x] = best[size_t(y) * bestWidth + x];
    }
    return image;
}

QImage icon(X11Connection& x11, xcb_window_t window, int preferredSize)
{
    const Reply reply =
        answer(x11, ask(x11, window, x11.ewmh()->_NET_WM_ICON, XCB_ATOM_CARDINAL, MaxIconLength));
    if (!reply || reply->format != 32)
        return QImage();
    const auto* values = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return iconFromCardinals(values, size_t(xcb_get_property_value_length(reply.get())) / 4, preferredSize);
}

bool isHidden(X11Connection& x11, xcb_window_t window)
{
    const QList<quint32> states =
        cardinals(answer(x11, ask(x11, window, x11.ewmh()->_NET_WM_STATE, XCB_ATOM_ATOM, 32)));
    return states.contains(x11.ewmh()->_NET_WM_STATE_HIDDEN);
}
} // namespace X11Windows

// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "removercandidates.h"

#include <QCollator>
#include <QFile>

#include <algorithm>

namespace {
bool listsAppstream(GAppInfo* info)
{
    const char* const* types = g_app_info_get_supported_types(info);
    for (; types && *types; ++types) {
        if (qstrcmp(*types, "x-scheme-handler/appstream") == 0)
            return true;
    }
    return false;
}
} // namespace

namespace RemoverCandidates {
QList<RemoverCandidate> installed()
{
    QList<RemoverCandidate> candidates;
    GList* all = g_app_info_get_all();
    for (GList* item = all; item; item = item->next) {
        auto* info = static_cast<GAppInfo*>(item->data);
        if (!G_IS_DESKTOP_APP_INFO(info) || !g_app_info_should_show(info))
            continue;
        const char* id = g_app_info_get_id(info);
        const char* file = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(info));
        const char* name = g_app_info_get_name(info);
        candidates.append({QString::fromUtf8(id ? id : ""), file ? QFile::decodeName(file) : QString(),
                           QString::fromUtf8(name ? name : ""), listsAppstream(info)});
    }
    g_list_free_full(all, g_object_unref);
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(candidates.begin(), candidates.end(),
              [&collator](const RemoverCandidate& a, const RemoverCandidate& b) {
                  const int byName = collator.compare(a.name, b.name);
                  return byName != 0 ? byName < 0 : a.desktopId < b.desktopId;
              });
    return candidates;
}
} // namespace RemoverCandidates

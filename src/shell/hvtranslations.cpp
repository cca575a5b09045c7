#include "hvtranslations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

bool HVTranslations::install(QCoreApplication& application, const QLocale& locale)
{
    // A second call (a test switching languages) replaces the first's translators.
    for (QTranslator* old : application.findChildren<QTranslator*>(QStringLiteral("HVTranslator"))) {
        QCoreApplication::removeTranslator(old);
        delete old;
    }
    auto load = [&](const QString& name, const QString& folder) {
        auto* translator = new QTranslator(&application);
        translator->setObjectName(QStringLiteral("HVTranslator"));
        if (translator->load(locale, name, QStringLiteral("_"), folder) &&
            QCoreApplication::installTranslator(translator))
            return true;
        delete translator;
        return false;
    };
    load(QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    return load(QStringLiteral("nimbo"), QStringLiteral(":/i18n"));
}

// Nimbo speaks the user's language where it has a translation built in (German and French so
// far), the toolkit's own texts included; English, the language it is written in, otherwise.
#pragma once

class QCoreApplication;
class QLocale;

namespace HVTranslations {
// Installs the translators for `locale` on the application; answers whether Nimbo's own was found.
bool install(QCoreApplication& application, const QLocale& locale);
} // namespace HVTranslations

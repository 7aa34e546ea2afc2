// The job of KxQtLocale is to write down a QLocale as the formats that the library reads.
#pragma once

#include <QLocale>

#include "host/Locale.h"

namespace plotkit {

/// Separators that are no single byte stay those of the default formats.
TLocaleFormats LocaleFormatsOf(const QLocale& locale);

}  // namespace plotkit

// SPDX-License-Identifier: MIT
#include "panel/statewords.h"

#include <QFileInfo>

namespace halvane {

QString saved_text(const QString& path, Language language) {
    return text_of(saved_words, language).arg(isolated(QFileInfo(path).fileName()));
}

} // namespace halvane

// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace halvane {

/// A PDF of QPdfWriter, so changed that the Arabic text in it can be searched, copied and read aloud; nothing
/// of what is seen changes. QPdfWriter tells readers the shape that each letter has in its word; here its
/// shapes are letters again (ISO 32000-1:2008, 9.10). A shape of several letters, such as lam with alef, is
/// told as the first of them; the others stand before it, without ink and without width: readers put the
/// letters of a line in order by their places, so the letters of one shape would come out turned round. The
/// fonts' names get the tags of subsets (9.6.4). A file of another form comes back as it is.
QByteArray readable_pdf(const QByteArray& pdf);

} // namespace halvane

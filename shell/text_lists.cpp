#include "shell/text_lists.h"

namespace pondera {

using namespace Qt::StringLiterals;

QStringList font_names() {
    return {u"Times New Roman"_s, u"Arial"_s, u"Tahoma"_s, u"Courier"_s, u"Verdana"_s, u"Wingdings"_s};
}

QStringList font_sizes() {
    return {u"1 (8pt)"_s, u"2 (10pt)"_s, u"3 (12pt)"_s, u"4 (14pt)"_s, u"5 (18pt)"_s, u"6 (24pt)"_s, u"7 (36pt)"_s};
}

}  // namespace pondera

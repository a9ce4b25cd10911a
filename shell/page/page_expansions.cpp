#include "shell/page/page_expansions.h"

namespace pondera {

using namespace Qt::StringLiterals;

QList<ExpansionStep> page_expansions() {
    const auto as_it_stands = [](const QString& page) { return page; };
    return {
        {u"Conv_MenuOrizzont"_s, as_it_stands},
        {u"Conv_Mov"_s, as_it_stands},
        {u"Conv_Audio"_s, as_it_stands},
        {u"Conv_Flash"_s, as_it_stands},
    };
}

}  // namespace pondera

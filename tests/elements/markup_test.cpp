#include "elements/markup.h"

#include "elements/tag_walk.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(Markup, ToleratedTagSpellingsBecomeUpperCase) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"<img src=x><Img src=x><iMg src=x>"_s, u"<IMG src=x><IMG src=x><iMg src=x>"_s},
        {u"<a href=x>t</a><body><Body><span><Span><div><Div><font><Font>"_s,
         u"<A href=x>t</a><BODY><BODY><SPAN><SPAN><DIV><DIV><FONT><FONT>"_s},
        {u"<script>if(i<a)w('<img>')</script><!-- <img> --><img>"_s,
         u"<script>if(i<a)w('<img>')</script><!-- <img> --><IMG>"_s},
        {u"2<a b"_s, u"2<A b"_s},
    };
    for (const auto& [text, normal] : cases) EXPECT_EQ(normalise_tags(text), normal);
}

TEST(Markup, StylesGetUpperCaseKeysAndPixels) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"position:absolute; left:100; top:100; width:80px; height:20px; z-index:900"_s,
         u"POSITION: absolute; LEFT: 100px; TOP: 100px; WIDTH: 80px; HEIGHT: 20px; Z-INDEX: 900"_s},
        {u"Z-INDEX: 0; LEFT: 0px; position: absolute; HEIGHT: 0px;"_s,
         u"Z-INDEX: 0; LEFT: 0px; POSITION: absolute; HEIGHT: 0px"_s},
        {u"left:-400;top:auto;width:50%;height:1.5;color:red"_s,
         u"LEFT: -400px; TOP: auto; WIDTH: 50%; HEIGHT: 1.5px; color: red"_s},
        {u"margin-left:10;line-height:2"_s, u"margin-left: 10; line-height: 2"_s},
        {u"background:url(data:image/gif;base64,R0==);font-family:&quot;A&quot;;left:1"_s,
         u"background: url(data:image/gif;base64,R0==); font-family: &quot;A&quot;; LEFT: 1px"_s},
        {u"font-family:&quot;Ar;ial&quot;;left:1"_s, u"font-family: &quot;Ar;ial&quot;; LEFT: 1px"_s},
        {u"/* a;left:9 */left:5; content:'a\\';left:5;&#92;&#39;';top:6/*"_s,
         u"LEFT: 5px; content: 'a\\';left:5;&#92;&#39;'; TOP: 6px"_s},
        {u"LEFT: 10; ;; junk; TOP"_s, u"LEFT: 10px; junk; TOP"_s},
        {u""_s, u""_s},
    };
    for (const auto& [style, normal] : cases) {
        EXPECT_EQ(normalise_style(style), normal);
        EXPECT_EQ(normalise_style(normal), normal);
    }
}

TEST(Markup, TagsAreFoundBySearch) {
    const QString text =
        u"<!-- <P> --><IMG alt=\"a > b <P>\" src=x><SCRIPT>if(a<b)'<P>'</SCRIPT><B<I>3 < 4"
        u"<HR title='x><HR title=\"a > b\" id=a\"b><IMG src=y"_s;
    QStringList found;
    TagWalk walk(text);
    while (const auto tag = walk.next()) found += tag->name + (tag->closed ? u""_s : u"!"_s);
    EXPECT_EQ(found, (QStringList{u"IMG"_s, u"SCRIPT"_s, u"/SCRIPT"_s, u"B!"_s, u"I"_s, u"HR"_s, u"HR"_s, u"IMG!"_s}));
}

TEST(Markup, AttributesAreFoundByName) {
    const std::vector<std::tuple<QString, QString, QString>> cases{
        {u"<IMG alt=\"name=no src=no\" NAME=yes src = 'a b'>"_s, u"name"_s, u"yes"_s},
        {u"<IMG alt=\"name=no src=no\" NAME=yes src = 'a b'>"_s, u"src"_s, u"a b"_s},
        {u"<IMG data-name=no name=>"_s, u"name"_s, u""_s},
        {u"<TD nowrap width=5>"_s, u"width"_s, u"5"_s},
        {u"<IMG onclick=k=\"x src=no\" src=media/>"_s, u"src"_s, u"no\""_s},
        {u"<IMG alt=\"a\"src=media/>"_s, u"src"_s, u"media/"_s},
    };
    for (const auto& [tag, name, value] : cases) EXPECT_EQ(attribute_value(tag, name), value) << tag.toStdString();
}

}  // namespace

}  // namespace pondera

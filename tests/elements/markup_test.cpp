#include "elements/markup.h"

#include "base/tag_walk.h"
#include "tests/support/tables.h"

namespace pondera {

TEST(Markup, ToleratedTagSpellingsBecomeUpperCase) {
    expect_results(normalise_tags, {u"<a href=x>t</a><body><Body><span><Span><div><Div><font><Font><img><Img><iMg>"
                                    u" → <A href=x>t</a><BODY><BODY><SPAN><SPAN><DIV><DIV><FONT><FONT><IMG><IMG><iMg>",
                                    u"<script>if(i<a)w('<img>')</script><!-- <img> -->2<a b"
                                    u" → <script>if(i<a)w('<img>')</script><!-- <img> -->2<A b"});
}

TEST(Markup, StylesGetUpperCaseKeysAndPixels) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"position:absolute; left:100; top:0; width:80px; height:20px; z-index:900;"_s,
         u"POSITION: absolute; LEFT: 100px; TOP: 0px; WIDTH: 80px; HEIGHT: 20px; Z-INDEX: 900"_s},
        {u"left:-400;top:auto;width:50%;height:1.5;color:red;margin-left:10"_s,
         u"LEFT: -400px; TOP: auto; WIDTH: 50%; HEIGHT: 1.5px; color: red; margin-left: 10"_s},
        {u"background:url(data:image/gif;base64,R0==);font-family:&quot;Ar;ial&quot;;left:1"_s,
         u"background: url(data:image/gif;base64,R0==); font-family: &quot;Ar;ial&quot;; LEFT: 1px"_s},
        {u"/* a;left:9 */left:5; content:'a\\';left:5;&#92;&#39;';top:6/*"_s,
         u"LEFT: 5px; content: 'a\\';left:5;&#92;&#39;'; TOP: 6px"_s},
        {u"LEFT: 10; ;; junk; :x; TOP"_s, u"LEFT: 10px; junk; :x; TOP"_s},
    };
    for (const auto& [style, normal] : cases)
        for (const QString& text : {style, normal}) EXPECT_EQ(normalise_style(text), normal);
}

TEST(Markup, TagsAreFoundBySearch) {
    const QString text =
        u"<!-- <P> --><IMG alt=\"a > b <P>\" src=x><SCRIPT>if(a<b)'<P>'</SCRIPT><B<I>3 < 4"
        u"<HR title='x><HR title=\"a > b\" id=a\"b><IMG src=y"_s;
    QStringList found;
    TagWalk walk(text);
    while (const auto tag = walk.next()) found += tag->name + (tag->closed ? u""_s : u"!"_s);
    EXPECT_EQ(found.join(u' '), u"IMG SCRIPT /SCRIPT B! I HR HR IMG!"_s);
}

TEST(Markup, AttributesAreFoundByName) {
    expect_results([](const QString& tag) { return attribute_value(tag, u"src").toString(); },
                   {u"<IMG alt=\"name=no src=no\" NOWRAP SRC = 'a b'> → a b", u"<IMG data-src=no src=> → ",
                    u"<IMG onclick=k=\"x src=no\" src=media/> → no\"", u"<IMG alt=\"a\"src=media/> → media/"});
}

}  // namespace pondera

#include "site/page_references.h"

#include "tests/support/tables.h"

namespace pondera {

/// What the references say, as they stand in the text when that differs.
static QString shown(const QString& text, const QList<PageReference>& references) {
    QStringList addresses;
    qsizetype last = 0;
    for (const PageReference& reference : references) {
        EXPECT_GE(reference.begin, last) << "not in order: " << text.toStdString();
        last = reference.end;
        const QString written = text.sliced(reference.begin, reference.end - reference.begin);
        addresses += written == reference.address ? written : written + u" = "_s + reference.address;
    }
    return addresses.join(u" | "_s);
}

TEST(PageReferences, StandInAttributesStylesAndScripts) {
    expect_results(
        [](const QString& text) { return shown(text, page_references(text)); },
        {u"<a href=x.htm>x.htm</a><A HREF = ' y z.htm '>y.htm</A> → x.htm | y z.htm",
         u"<a href=\"a&amp;b.htm?c=1&copy=2\">&eacute;<a href='Caf&eacute;&#x2e;htm'> → a&amp;b.htm?c=1&copy=2 = "
         u"a&b.htm?c=1&copy=2 | Caf&eacute;&#x2e;htm = Café.htm",
         u"<a title=\"href='no.htm'\" name=no.htm><!-- <a href=no.htm> --><a href=''><base href=no/> → ",
         u"<body background=b.gif><img src=i.gif dynsrc=d.avi longdesc=t.htm> → b.gif | i.gif | d.avi | t.htm",
         u"<img srcset='a.jpg, b.jpg 2x,c.jpg 3x , d,e.jpg'> → a.jpg | b.jpg | c.jpg | d,e.jpg",
         u"<object data=o.swf><param name=Movie value=m.swf><param name=loop value=no.swf> → o.swf | m.swf",
         u"<meta http-equiv=Refresh content=\"5; URL='next.htm'\"><meta name=x content='url=no.htm'> → next.htm",
         u"<p style=\"background:url( 'a b.gif' ),URL(b.gif)\"> → a b.gif | b.gif",
         u"<STYLE>@import \"s.css\"; /* url(no.gif) */ b{background:url(x.gif)}</STYLE><p>url(no.gif) → s.css | x.gif",
         u"<a href=\"javascript:esempio('_x_My Map.htm',300,200);\"> → _x_My Map.htm",
         u"<a href=javascript:f(%27_x_Map.htm%27)><a onclick='f(&quot;a&#38;&quot;)'> → _x_Map.htm",
         u"<script src=s.js>go('a.htm?b=c#d');\n// 'no.htm'\nf(\"don't\", 'no.', '.htm')</script> → s.js | a.htm?b=c#d",
         u"<script>document.write(\"<img src='a.gif'><a href=\\'b.htm\\'>\");</script> → a.gif | b.htm",
         u"<script>i = 'm/' + n + '_no.gif'; w('Is it so? Go.')</script> → ",
         u"<title>'no.htm'</title><textarea><a href=no.htm></textarea><a href=cut.htm → cut.htm"});
}

TEST(PageReferences, StandInSettingsFiles) {
    expect_results(
        [](const QString& text) { return shown(text, script_references(text)); },
        {u"txtVoce1.Text = Car\r\nList1_0 = _4_Città.htm\r\nCheck1.Value = 0 → _4_Città.htm",
         u"sPicLocal1 = C:\\no.gif\n//Sub 'no.htm'\nmyMenu[0] = new Array(\"L\",\"Car\",\"\",\"_4_Car.htm\") "
         u"→ _4_Car.htm"});
}

TEST(PageReferences, LeadSomewhere) {
    using Place = AddressTarget::Place;
    const auto shown_target = [](const QString& address) {
        const AddressTarget target = resolve_address(address, u"My Shop"_s);
        const QString anchor = target.anchor.isEmpty() ? QString() : u" # "_s + target.anchor;
        if (target.place == Place::kWebsite) return target.file + anchor;
        if (target.place == Place::kThisPage) return u"here"_s + anchor;
        if (target.place == Place::kOutside) return u"outside"_s;
        return target.place == Place::kWeb ? u"web"_s : u"nowhere"_s;
    };
    expect_results(
        shown_target,
        {u"# | JavaScript:f('x.htm') → nowhere", u"#to%20p → here # to p", u"?a=1#b → here # b",
         u" _4_Car.htm?a=../b#c%C3%A8 → _4_Car.htm # cè", u"_4_a%2520b%20%25.htm → _4_a%20b %.htm",
         u"Citt%C3%A0%E0%.htm → CittÃ\u00a0à%.htm", u"Citt%E0.htm | Citt%C3%A0.htm → Città.htm",
         u"./media\\img//a%2Fb.gif → media/img/a/b.gif",
         u"media/../_4_Car.htm | ../MY%20shop/_4_Car.htm | §_4_Car.htm | %A7_4_Car.htm | ?_4_Car.htm?a → _4_Car.htm",
         u"media/../../my shop\\x.gif → x.gif", u"../My Shop/ | çindex.htm → index.htm",
         u"../Other/_4_Car.htm | ../../My Shop/_4_Car.htm | media/..%2F..%5Cx.htm | .. | /_4_Car.htm → outside",
         u"\\\\server\\x.htm | C:\\x.htm | c|/x.htm | file:///home/x.htm → outside",
         u"//host/_4_Car.htm | MAILTO:me@x.example → web", u"%C2%A7_4_Car.htm#a → _4_Car.htm # a",
         u"%e7Index.htm → Index.htm", u"'_2_Car.htm → _2_Car.htm"});
}

TEST(PageReferences, AnAddressLeadsToItsFile) {
    EXPECT_EQ(address_of(u"media/a'b\"(1)&c à.gif"_s), u"media/a%27b%22%281%29%26c%20à.gif");
    for (const QString& file :
         {u"a%20#b?c:d;e=f.htm"_s, u"mailto:x.htm"_s, u"日本 😀.htm"_s, u"media/e\u0301\\.gif"_s}) {
        EXPECT_EQ(resolve_address(address_of(file), u"Shop"_s).place, AddressTarget::Place::kWebsite);
        EXPECT_EQ(resolve_address(address_of(file), u"Shop"_s).file, QString(file).replace(u'\\', u'/'));
    }
}

}  // namespace pondera

// What `content` puts before and after the elements of a page.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
// Every picture is 10 by 20 pixels; those that were asked for are in the list.
struct WithPictures {
    explicit WithPictures(const std::u16string& body) : page(body) {
        page.text.pictureSize = [this](const PageBox& box) {
            if (!box.generated) return Size{10, 20};
            if (box.generated->text == u"missing.png") return Size{};
            addresses += box.generated->text + u" ";
            return Size{10, 20};
        };
    }
    PageSample page;
    std::u16string addresses;
};

constexpr const char16_t* sheet =
    u"<style>.b::before{content:url(b.png)}.a:after{content:'<' url(a.png) '>'}"
    u".m::after{content:url(missing.png)}</style>";

std::string Lines(const std::u16string& body) {
    return WithPictures(sheet + body).page.Lines(400);
}
} // namespace

TEST_CASE("generated: a picture stands before or after what is in its element") {
    CHECK(Lines(u"<p class=b style='margin:0'>one") == "0,0 #one");
    CHECK(Lines(u"<p class=a style='margin:0'>one") == "0,0 one<#>");
    CHECK(Lines(u"x<span class='a b'>one <img> two</span>y") == "0,0 x#one # two<#>y");
    CHECK(Lines(u"x<span class='a b'></span>y") == "0,0 x#<#>y");
    CHECK(Lines(u"<p class=b style='margin:0'></p>") == "0,0 #");
}

TEST_CASE("generated: a picture takes its room") {
    CHECK(Lines(u"<div style='float:right' class=b></div>aa") == "0,0 aa|390,0 #");
    CHECK(Lines(u"<div style='float:right' class=a></div>aa") == "0,0 aa|374,0 <#>");
    CHECK(Lines(u"<div class=b>one</div>two") == "0,0 #one|0,23 two"); // 20 above the baseline
    CHECK(Lines(u"<div class=m>one</div>two") == "0,0 one#|0,16 two");
}

TEST_CASE("generated: pictures are those of their rules") {
    WithPictures sample(sheet + std::u16string(u"<p class='a b'>one <b class=b>two"));
    sample.page.Lines(400);
    CHECK(sample.addresses.find(u"b.png b.png a.png") != sample.addresses.npos);
}

TEST_CASE("generated: what elements have of their own is theirs where content has pictures") {
    PageSample page(u"<style>b:before{content:url(x.png)}</style>"
                    u"<p>one <b>two <img src=y.png></b> <i>three</i>");
    CHECK(page.Boxes() == "Block(Block(Block(Lines[one #two # three](Picture Picture))))");
}

TEST_CASE("generated: a block of its own stands above or below") {
    const std::u16string block =
        u"<style>.t::before{content:'top';display:block}.t::after{content:'end';display:block;"
        u"text-align:right}.r::after{content:'';display:block;height:10px}</style>";
    CHECK(Lines(block + u"<div class=t>one</div>two") == "0,0 top|0,16 one|376,32 end|0,48 two");
    CHECK(Lines(block + u"<div class=t><p style='margin:0'>one</div>two") ==
          "0,0 top|0,16 one|376,32 end|0,48 two");
    CHECK(Lines(block + u"<div class=t></div>two") == "0,0 top|376,16 end|0,32 two");
    CHECK(Lines(block + u"a <b class=t>one</b> two") ==
          "0,0 a|0,16 top|0,32 one|376,48 end|0,64 two");
    CHECK(Lines(block + u"<div class=r>one</div>two") == "0,0 one|0,26 two");
}

TEST_CASE("generated: a cell of its own stands beside the text of a table") {
    const std::u16string cells =
        u"<style>.t{display:table}.t::before{content:'(1)';display:table-cell;width:40px}"
        u".e::after{content:'end';display:table-cell}.n::before{content:'';display:table}</style>";
    CHECK(Lines(cells + u"<div class=t>one</div>two") == "0,0 (1)|40,0 one|0,16 two");
    CHECK(Lines(cells + u"<div class='t e'><p style='margin:0'>one</div>two") ==
          "0,0 (1)|40,0 one|64,0 end|0,16 two");
    CHECK(Lines(cells + u"<div class='t e'></div>two") == "0,0 (1)|40,0 end|0,16 two");
    CHECK(Lines(cells + u"<div class=t><div style='display:table-row'>one</div></div>two") ==
          "0,0 (1)|0,16 one|0,32 two");
    CHECK(Lines(cells + u"<div class='t n'>one</div>two") == "0,0 one|0,16 two");
}

TEST_CASE("generated: floats, and blocks in lines") {
    const std::u16string sheets =
        u"<style>.f::before{content:'1';float:right}.i::after{content:'2';display:inline-block;"
        u"width:80px;text-align:right}.d::before{content:'. . . .';float:left;width:0;"
        u"white-space:nowrap}</style>";
    CHECK(Lines(sheets + u"<div class=f>one</div>two") == "0,0 one|0,16 two|392,0 1");
    CHECK(Lines(sheets + u"<div class=i>one</div>two") == "0,0 one#|96,0 2|0,16 two");
    CHECK(Lines(sheets + u"<div class=f><b>one</b></div>two") == "0,0 one|0,16 two|392,0 1");
    CHECK(Lines(sheets + u"<div class=d>one</div>two") == "0,0 one|0,16 two"); // leaders
}

TEST_CASE("generated: one that goes below floats makes its block as high") {
    const std::u16string body = u"<div class=c><img style='float:right'>one</div>two";
    CHECK(Lines(u"<style>.c::after{content:'';display:table;clear:both}</style>" + body) ==
          "0,0 one|0,20 two");
    CHECK(Lines(body) == "0,0 one|0,16 two");
}

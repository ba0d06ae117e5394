#include "formats/html/html_element_kinds.h"

using enum HtmlName;

bool IsHeadPart(HtmlName name) {
    switch (name) {
    case Base:
    case Basefont:
    case Bgsound:
    case Link:
    case Meta:
    case Noframes:
    case Script:
    case Style:
    case Template:
    case Title: return true;
    default: return false;
    }
}

bool IsHeading(HtmlName name) {
    switch (name) {
    case H1:
    case H2:
    case H3:
    case H4:
    case H5:
    case H6: return true;
    default: return false;
    }
}

bool IsFormatting(HtmlName name) {
    switch (name) {
    case B:
    case Big:
    case Code:
    case Em:
    case Font:
    case I:
    case S:
    case Small:
    case Strike:
    case Strong:
    case Tt:
    case U: return true;
    default: return false;
    }
}

bool IsPlainBlock(HtmlName name) {
    switch (name) {
    case Address:
    case Article:
    case Aside:
    case Blockquote:
    case Center:
    case Details:
    case Dialog:
    case Dir:
    case Div:
    case Dl:
    case Fieldset:
    case Figcaption:
    case Figure:
    case Footer:
    case Header:
    case Hgroup:
    case Main:
    case Menu:
    case Nav:
    case Ol:
    case Search:
    case Section:
    case Summary:
    case Ul: return true;
    default: return false;
    }
}

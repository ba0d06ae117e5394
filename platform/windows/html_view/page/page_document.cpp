#include "platform/windows/html_view/page/page_document.h"

#include "common/colors.h"
#include "platform/windows/base/com_values.h"

#include <algorithm>
#include <cwchar>

namespace {

bool FollowsStandards(IHTMLDocument2* document) {
    const auto modern = Query<IHTMLDocument5>(document);
    Bstr mode;
    return modern && SUCCEEDED(modern->get_compatMode(mode.Put())) && mode.View() == L"CSS1Compat";
}

ComPtr<IDispatch> RootOf(IHTMLDocument2* document) {
    const auto tree = Query<IHTMLDocument3>(document);
    ComPtr<IHTMLElement> root;
    if (!tree || FAILED(tree->get_documentElement(&root))) return {};
    return Query<IDispatch>(root);
}

// The root element scrolls in standards mode, the body in quirks mode.
ComPtr<IHTMLElement2> FindScroller(IHTMLDocument2* document, IDispatch* body) {
    return Query<IHTMLElement2>(FollowsStandards(document) ? RootOf(document).Get() : body);
}

// A number, or a text beginning with one: "15", "8px".
std::optional<int> LengthIn(const VARIANT& value) {
    if (V_VT(&value) == VT_I4) return V_I4(&value);
    const std::wstring text = TextOf(&value);
    wchar_t* end = nullptr;
    const long number = std::wcstol(text.c_str(), &end, 10);
    if (end == text.c_str()) return std::nullopt;
    return static_cast<int>(number);
}

std::optional<int> MarginByAttribute(IDispatch* body) {
    const auto element = Query<IHTMLBodyElement>(body);
    Variant margin;
    if (!element || FAILED(element->get_topMargin(margin.Put()))) return std::nullopt;
    return LengthIn(margin.Get());
}

std::optional<int> MarginByStyle(IDispatch* body) {
    const auto element = Query<IHTMLElement2>(body);
    ComPtr<IHTMLCurrentStyle> style;
    if (!element || FAILED(element->get_currentStyle(&style)) || !style) return std::nullopt;
    Variant margin;
    if (FAILED(style->get_marginTop(margin.Put()))) return std::nullopt;
    return LengthIn(margin.Get());
}

std::optional<int> BorderOf(IDispatch* body) {
    const auto element = Query<IHTMLElement2>(body);
    long border = 0;
    if (!element || FAILED(element->get_clientTop(&border))) return std::nullopt;
    return static_cast<int>(border);
}

ComPtr<IHTMLStyle> StyleOf(const ComPtr<IDispatch>& body) {
    const auto element = Query<IHTMLElement>(body);
    ComPtr<IHTMLStyle> style;
    if (!element || FAILED(element->get_style(&style))) return {};
    return style;
}

std::wstring ColorName(Color color) {
    wchar_t name[8] = {};
    std::swprintf(name, 8, L"#%06X", static_cast<unsigned>(SwapColorOrder(color)));
    return name;
}

} // namespace

PageDocument::PageDocument(IDispatch* document) : document_(Query<IHTMLDocument2>(document)) {
    ComPtr<IHTMLElement> body;
    if (!document_ || FAILED(document_->get_body(&body))) return;
    if (!Query<IHTMLBodyElement>(body)) return;
    scroller_ = FindScroller(document_.Get(), body.Get());
    if (scroller_) body_ = Query<IDispatch>(body);
    Variant color;
    if (const auto style = StyleOf(body_); style && SUCCEEDED(style->get_color(color.Put())))
        originalTextColor_ = TextOf(&color.Get());
}

bool PageDocument::HasBody() const {
    return static_cast<bool>(body_);
}

std::optional<std::wstring> PageDocument::Charset() const {
    Bstr charset;
    if (!document_ || FAILED(document_->get_charset(charset.Put()))) return std::nullopt;
    return std::wstring(charset.View());
}

std::optional<std::wstring> PageDocument::Title() const {
    Bstr title;
    if (!document_ || FAILED(document_->get_title(title.Put()))) return std::nullopt;
    return std::wstring(title.View());
}

std::optional<int> PageDocument::ScrollLeft() const {
    long left = 0;
    if (!scroller_ || FAILED(scroller_->get_scrollLeft(&left))) return std::nullopt;
    return static_cast<int>(left);
}

std::optional<int> PageDocument::ScrollTop() const {
    long top = 0;
    if (!scroller_ || FAILED(scroller_->get_scrollTop(&top))) return std::nullopt;
    return static_cast<int>(top);
}

std::optional<int> PageDocument::ViewHeight() const {
    long height = 0;
    if (!scroller_ || FAILED(scroller_->get_clientHeight(&height))) return std::nullopt;
    return static_cast<int>(height);
}

std::optional<int> PageDocument::MaxScrollTop() const {
    long whole = 0, visible = 0;
    if (!scroller_ || FAILED(scroller_->get_scrollHeight(&whole)) ||
        FAILED(scroller_->get_clientHeight(&visible)))
        return std::nullopt;
    return static_cast<int>(std::max(whole - visible, 0L));
}

ComPtr<IHTMLElementCollection> PageDocument::Elements(const wchar_t* name) const {
    const auto tree = Query<IHTMLDocument3>(document_);
    const Bstr tag(name);
    ComPtr<IHTMLElementCollection> elements;
    if (!tree || FAILED(tree->getElementsByTagName(tag.Get(), &elements))) return {};
    return elements;
}

std::optional<int> PageDocument::TopMargin() const {
    if (!body_) return std::nullopt;
    auto margin = MarginByAttribute(body_.Get());
    if (!margin) margin = MarginByStyle(body_.Get());
    const auto border = BorderOf(body_.Get());
    if (!margin || !border) return std::nullopt;
    return *margin + *border;
}

bool PageDocument::ScrollTo(int left, int top) {
    ComPtr<IHTMLWindow2> window;
    if (!document_ || FAILED(document_->get_parentWindow(&window))) return false;
    return window && SUCCEEDED(window->scrollTo(left, top));
}

bool PageDocument::SetBackColor(Color color) {
    const auto style = StyleOf(body_);
    const Variant name(ColorName(color));
    return style && SUCCEEDED(style->put_backgroundColor(name.Get()));
}

bool PageDocument::SetTextColor(std::optional<Color> color) {
    const auto style = StyleOf(body_);
    const Variant name(color ? ColorName(*color) : originalTextColor_);
    return style && SUCCEEDED(style->put_color(name.Get()));
}

ComPtr<IHTMLCSSStyleDeclaration> PageDocument::BodyStyle() const {
    return ComputedStyleOf(body_);
}

ComPtr<IHTMLCSSStyleDeclaration> PageDocument::RootStyle() const {
    return ComputedStyleOf(RootOf(document_.Get()));
}

ComPtr<IHTMLCSSStyleDeclaration>
PageDocument::ComputedStyleOf(const ComPtr<IDispatch>& element) const {
    ComPtr<IHTMLWindow2> window;
    if (!body_ || FAILED(document_->get_parentWindow(&window))) return {};
    const auto modern = Query<IHTMLWindow7>(window);
    const auto node = Query<IHTMLDOMNode>(element);
    ComPtr<IHTMLCSSStyleDeclaration> style;
    if (!modern || !node || FAILED(modern->getComputedStyle(node.Get(), nullptr, &style)))
        return {};
    return style;
}

ComPtr<IHTMLTxtRange> PageDocument::WholeText() const {
    const auto body = Query<IHTMLBodyElement>(body_);
    ComPtr<IHTMLTxtRange> range;
    if (!body || FAILED(body->createTextRange(&range))) return {};
    return range;
}

ComPtr<IHTMLTxtRange> PageDocument::SelectedText() const {
    ComPtr<IHTMLSelectionObject> selection;
    if (!body_ || FAILED(document_->get_selection(&selection)) || !selection) return {};
    ComPtr<IDispatch> range;
    if (FAILED(selection->createRange(&range))) return {};
    return Query<IHTMLTxtRange>(range);
}

// Custom properties of elements: they inherit, so that most elements have their parent's list.
#include "formats/css/css_limits.h"
#include "formats/css/css_property_parser.h"
#include "formats/css/css_styler.h"

namespace {
// Of a declaration: with its variables in their places it may be much longer than it is written.
constexpr std::uint64_t stepsOfReading = 1024;

std::size_t UnitsOf(const CssVariables& list) {
    std::size_t units = 0;
    for (const CssVariable& variable : list)
        units += variable.name.size() + variable.value.size();
    return units;
}
} // namespace

void CssStyler::AddWritten(std::span<const CssDeclaration> declarations, const CssBlock& block,
                           CssImportance importance,
                           std::vector<const CssWrittenDeclaration*>& written) const {
    if (block.written.empty()) return; // as most sheets and style attributes are
    const bool important = importance == CssImportance::Important;
    for (const CssDeclaration& declaration : declarations)
        if (declaration.property == CssProperty::Custom && declaration.important == important)
            written.push_back(&block.written[declaration.value.index]);
}

std::uint32_t CssStyler::VariablesOf(CssPseudoElement which, const CssBlock& own,
                                     std::uint32_t outer) {
    std::vector<const CssWrittenDeclaration*> written;
    for (const CssImportance importance : {CssImportance::Normal, CssImportance::Important}) {
        for (const std::uint32_t number : matcher_.Rules()) {
            const CssIndexedRule& rule = index_.Rule(number);
            if (rule.pseudoElement == which && rule.Origin() == CssOrigin::Author)
                AddWritten(DeclarationsOf(*rule.sheet, *rule.rule), rule.sheet->block, importance,
                           written);
        }
        AddWritten(own.declarations, own, importance, written);
    }
    const bool isFull = variableUnits_ > maxCssVariableStore || matcher_.IsExhausted();
    if (written.empty() || isFull) return outer;
    for (const CssWrittenDeclaration* declaration : written)
        matcher_.AddSteps(stepsOfReading + declaration->value.size());
    const CssVariables list = ResolveCssVariables(variableLists_[outer], written);
    const std::size_t units = UnitsOf(list);
    matcher_.AddSteps(units); // which are copied and compared
    const std::size_t known = variableLists_.Count();
    const std::uint32_t number = variableLists_.NumberOf(list);
    if (variableLists_.Count() > known) variableUnits_ += units;
    return number == 0 && !list.empty() ? outer : number; // no more lists
}

const CssBlock& CssStyler::Read(const CssWrittenDeclaration& declaration) {
    static const CssBlock none;
    if (matcher_.IsExhausted()) return none;
    matcher_.AddSteps(stepsOfReading);
    read_.push_back(ReadCssWritten(declaration, variableLists_[variables_], reading_));
    return read_.back();
}

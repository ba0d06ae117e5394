// What is declared of one element, by origin and importance: of each property the value that wins.
#pragma once

#include "formats/css/css_sheet.h"

#include <array>
#include <span>

struct CssCascaded {
    bool given = false; // else the property inherits, or has its initial value
    CssValue value;
    const CssBlock* block = nullptr; // which the value's lists are of
};

// What declarations with variables say of the element; the blocks live as long as the cascade.
class CssWrittenReader {
  public:
    virtual ~CssWrittenReader() = default;
    virtual const CssBlock& Read(const CssWrittenDeclaration& declaration) = 0;
};

enum class CssImportance : std::uint8_t { Normal, Important };

class CssCascade {
  public:
    explicit CssCascade(CssWrittenReader& written) : written_(written) {}

    // Declarations of one rule, from the weakest to the strongest; of these those that are
    // important, or those that are not.
    void Apply(std::span<const CssDeclaration> declarations, const CssBlock& block,
               CssImportance importance);
    // What is there now is what `revert` goes back to.
    void EndUserAgent() { userAgent_ = values_; }

    const CssCascaded& operator[](CssProperty property) const {
        return values_[std::size_t(property)];
    }
    // Start and end are left and right from here on, or the other way round.
    void SetDirection(bool rightToLeft);

  private:
    using Values = std::array<CssCascaded, cssPropertyCount>;
    void ApplyAll(std::span<const CssDeclaration> declarations, const CssBlock& block);
    void ApplyOne(const CssDeclaration& declaration, const CssBlock& block);
    void Set(CssProperty property, const CssCascaded& value);

    CssWrittenReader& written_;
    Values values_{}, userAgent_{};
    // Of start and end: which of them was declared after left and right.
    std::array<std::uint32_t, cssPropertyCount> order_{};
    std::uint32_t time_ = 0;
};

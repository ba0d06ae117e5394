#include "datafile/scheme.h"

#include "common/text.h"

void WriteScheme(IniFile& file) {
    // The last fields stand here in an order of their own; records keep the size before the title.
    const std::u16string names =
        u"Path,Access,Filter,FontName,FontSize,Charset,Bold,Italic,Underline,"
        u"Strikethru,Wrap,Align,ForeColor,BackColor,LastPos,Title,Size,Marks";
    const auto comma = names.find(u',');
    const std::u16string rest = Replace(names.substr(comma + 1), u",", u">=<");
    IniWriteString(file, u"Scheme", u"<" + names.substr(0, comma) + u">", u"<" + rest + u">");
    IniWriteString(file, u"Scheme", u"<Marks>:", u"<SelStart>,<SelLength>|...");
}

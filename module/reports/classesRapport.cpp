#include "reports/classesRapport.h"

#include "reports/htmlStyle.h"

void declarerClassesRapport(htmlDocument& document)
{
    // One style for all: each class keeps what the earlier ones set.
    htmlStyle style;
    style.setFontFamily("Arial");
    style.setGenericFamily("serif");
    style.setFontSize({10, htmlSize::pt});
    document.addStyle(".petit", style.text());

    style.setFontSize({18, htmlSize::pt});
    document.addStyle(".grand", style.text());

    style.setFontSize({10, htmlSize::pt});
    style.setTextDecoration(htmlStyle::underline);
    document.addStyle(".titre", style.text());

    style.setTextDecoration(htmlStyle::noDecoration);
    style.setBorderStyles(htmlBorderStyle(htmlBorderStyle::solid));
    style.setBorderWidths({1, htmlSize::px});
    style.setBorderColors({0, 0, 0});
    style.setPaddings({4, htmlSize::px});
    style.setMargins({4, htmlSize::px});
    document.addStyle(".celnorm", style.text());

    style.setBackgroundColor({239, 239, 239});
    document.addStyle(".celgris", style.text());
}

htmlTable tableauRapport()
{
    htmlTable table;
    table.setAlignment(htmlTable::center);
    table.setBorder(0);
    table.setCellPadding(2);
    table.setCellSpacing(0);
    return table;
}

# What the product is called and who makes it: the one place, for the program, its packages and its resources.
set(PRODUCT_TITLE "Norvaset")
set(PRODUCT_VERSION_MAJOR 1)
set(PRODUCT_VERSION_MINOR 0)
set(PRODUCT_VERSION_REVISION 0)
set(PRODUCT_DATE "2026-11-21") # of this version
set(PRODUCT_COMPANY "Norvaset Founders")
set(PRODUCT_DESCRIPTION "Reader for text, rich text and HTML books")
set(PRODUCT_WEB_SITE "https://norvaset.example")
set(PRODUCT_MAIL "mailto:feedback@norvaset.example")
# The web site comes first and the mail address second: the program splits this text at ", ".
set(PRODUCT_COMMENTS "${PRODUCT_WEB_SITE}, ${PRODUCT_MAIL}")
set(PRODUCT_COPYRIGHT "Copyright (c) 2026 ${PRODUCT_COMPANY}")
set(PRODUCT_TRADEMARKS "${PRODUCT_TITLE}") # the About box is titled "About " and this

# Fails unless PAGE has exactly the rows of CODES as rows of a table, in their order.
file(STRINGS "${CODES}" codes REGEX "^ZT_ORVEX_KIT_FINDING")
list(TRANSFORM codes REPLACE "^[^\"]*\"([^\"]*)\", *\"([^\"]*)\"\\)$" "| `\\1` | \\2 |")
file(STRINGS "${PAGE}" rows REGEX "^\\| `[a-z-]+` \\| [A-Z].* \\|$")
if(NOT rows STREQUAL codes OR NOT codes)
    list(JOIN codes "\n" codes)
    message(FATAL_ERROR "${PAGE} should have these rows:\n${codes}")
endif()

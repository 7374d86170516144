# Fails unless `SCRIPT --check` accepts a copy of the folder HEADERS and refuses it after each of
# a few changes.
set(copy "${WORK_DIR}/headers")

# zt_orvex_expect_refusal(<file> <old> <new> <text of the refusal>)
function(zt_orvex_expect_refusal file old new text)
    file(REMOVE_RECURSE "${copy}")
    file(COPY "${HEADERS}/" DESTINATION "${copy}")
    execute_process(COMMAND "${PYTHON}" "${SCRIPT}" --check "${copy}" RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "the headers as they are were refused")
    endif()
    file(READ "${copy}/${file}" content)
    string(REPLACE "${old}" "${new}" changed "${content}")
    if(changed STREQUAL content)
        message(FATAL_ERROR "${file} doesn't hold ${old}")
    endif()
    file(WRITE "${copy}/${file}" "${changed}")
    execute_process(COMMAND "${PYTHON}" "${SCRIPT}" --check "${copy}"
        RESULT_VARIABLE result ERROR_VARIABLE error)
    string(FIND "${error}" "${text}" position)
    if(result EQUAL 0 OR position EQUAL -1)
        message(FATAL_ERROR "after a change of ${file}: ${result}, ${error}")
    endif()
endfunction()

zt_orvex_expect_refusal(NodeKinds.def "ZT_ORVEX_EACH(IfStatement, getIfBody, StatementRangeView)" ""
    "no row of NodeKinds.def names getIfBody")
zt_orvex_expect_refusal(NodeKinds.def "ZT_ORVEX_NODE_KIND(End, Expression)"
    "ZT_ORVEX_NODE_KIND(End, Expression)\nZT_ORVEX_ONE(End, getEndOf)" "IAstView.h lacks getEndOf")
zt_orvex_expect_refusal(NodeKinds.def "ZT_ORVEX_MAYBE(IfStatement, getIfElseClause)"
    "ZT_ORVEX_ONE(IfStatement, getIfElseClause)" "getIfElseClause returns")
zt_orvex_expect_refusal(IAstView.h "    /// How many elements the range has.\n    virtual std::uint64_t getRowRangeSize"
    "    virtual std::uint64_t getRowRangeSize" "getRowRangeSize has no comment")
zt_orvex_expect_refusal(NodeKinds.def "NODE_KIND(End, Expression)" "NODE_KIND(Ende, Expression)"
    "TypedViews.h isn't up to date")
zt_orvex_expect_refusal(TypedViews.h "view->getIfCondition(node)" "view->getWhileCondition(node)"
    "TypedViews.h isn't up to date")
zt_orvex_expect_refusal(BasicAstView.h "missing(\"getIfCondition of IfStatement\")"
    "missing(\"getIfCondition\")" "BasicAstView.h isn't up to date")

#include "WalkTraces.h"

namespace zt::orvex::testing {

// Written by hand: tests hold the table of kinds against these rows. The numbers of the kinds, which
// are their places in FULL_TRACES, are part of the interface, and owners of trees may have stored
// them.

const std::vector<WalkTrace> FULL_TRACES = {
    {NodeKind::AnonymousFunction, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView {
         return t.anonymousFunction({t.id("p"), t.id("q")}, t.id("body"));
     },
     "AnonymousFunction! getAnonymousFunctionParameters # @0 p! # @1 q! # "
     "getAnonymousFunctionBody body!"},
    {NodeKind::AnyExpression, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.anyExpression(); }, "AnyExpression!"},
    {NodeKind::ArgumentDeclaration, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.argumentDeclaration(t.id("name"), t.id("p1"), t.id("p2"), t.id("p3"), t.id("p4"));
     },
     "ArgumentDeclaration! getArgumentDeclarationName name! getArgumentDeclarationPart1 "
     "getArgumentDeclarationPart1 p1! getArgumentDeclarationPart2 "
     "getArgumentDeclarationPart2 p2! getArgumentDeclarationPart3 "
     "getArgumentDeclarationPart3 p3! getArgumentDeclarationPart4 "
     "getArgumentDeclarationPart4 p4!"},
    {NodeKind::ArgumentsBlock, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.argumentsBlock({t.id("a1"), t.id("a2")}, {t.id("d1"), t.id("d2")});
     },
     "ArgumentsBlock! getArgumentsBlockAttributes # @0 a1! # @1 a2! # "
     "getArgumentsBlockDeclarations # @0 d1! # @1 d2! #"},
    {NodeKind::AssignmentStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.assign(t.id("left"), t.id("right")); },
     "AssignmentStatement! getAssignmentLhs left! getAssignmentRhs right!"},
    {NodeKind::Attribute, KindClass::Other,
     [](TreeBuilder& t) -> NodeView { return t.attribute(t.id("name"), t.id("value")); },
     "Attribute! getAttributeName name! getAttributeValue getAttributeValue value!"},
    {NodeKind::BareIdentifierStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.bareIdentifier(t.id("x")); },
     "BareIdentifierStatement! getBareIdentifier x!"},
    {NodeKind::BinaryOperation, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.add(t.id("left"), t.id("right")); },
     "BinaryOperation! getBinaryLhs left! getBinaryRhs right!"},
    {NodeKind::BraceOperation, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView {
         return t.brace(t.id("base"), {t.id("a1"), t.id("a2")});
     },
     "BraceOperation! getBraceBase base! getBraceArguments # @0 a1! # @1 a2! #"},
    {NodeKind::BreakStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.breakStatement(); }, "BreakStatement!"},
    {NodeKind::CaseClause, KindClass::Clause,
     [](TreeBuilder& t) -> NodeView {
         return t.caseClause(t.id("head"), {t.id("s1"), t.id("s2")});
     },
     "CaseClause! getCaseExpression head! getCaseBody # @0 s1! # @1 s2! #"},
    {NodeKind::CatchClause, KindClass::Clause,
     [](TreeBuilder& t) -> NodeView {
         return t.catchClause(MaybeNode(t.id("e")), {t.id("s1"), t.id("s2")});
     },
     "CatchClause! getCatchIdentifier getCatchIdentifier e! getCatchBody # @0 s1! # @1 s2! #"},
    {NodeKind::CellArray, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView {
         return t.cellArray({t.id("r1"), t.id("r2")});
     },
     "CellArray! getCellArrayRows # @0 r1! # @1 r2! #"},
    {NodeKind::CharacterLiteral, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.characterLiteral(t.id("part")); },
     "CharacterLiteral! getCharacterLiteralPart getCharacterLiteralPart part!"},
    {NodeKind::ClassDefinition, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.classDefinition({t.id("a1"), t.id("a2")}, t.id("name"), {t.id("s1"), t.id("s2")},
                                  {t.id("m1"), t.id("m2")});
     },
     "ClassDefinition! getClassAttributes # @0 a1! # @1 a2! # getClassName name! "
     "getClassSuperclasses # @0 s1! # @1 s2! # getClassMembers # @0 m1! # @1 m2! #"},
    {NodeKind::Colon, KindClass::Expression, [](TreeBuilder& t) -> NodeView { return t.colon(); },
     "Colon!"},
    {NodeKind::ColonOperation, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView {
         return t.colonOperation(t.id("start"), t.id("step"), t.id("stop"));
     },
     "ColonOperation! getColonStart start! getColonStep getColonStep step! getColonStop "
     "stop!"},
    {NodeKind::CommandStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.command(t.id("target"), t.id("callee"), {t.id("w1"), t.id("w2")});
     },
     "CommandStatement! getCommandTarget target! getCommandCallee callee! getCommandWords # "
     "@0 w1! # @1 w2! #"},
    {NodeKind::ContinueStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.continueStatement(); }, "ContinueStatement!"},
    {NodeKind::DiscardedExpression, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.discardedExpression(); }, "DiscardedExpression!"},
    {NodeKind::DiscardedStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.discardedStatement(); }, "DiscardedStatement!"},
    {NodeKind::DotOperation, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.dot(t.id("base"), t.id("field")); },
     "DotOperation! getDotBase base! getDotField field!"},
    {NodeKind::DynamicFieldOperation, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.dynamicField(t.id("base"), t.id("field")); },
     "DynamicFieldOperation! getDynamicFieldBase base! getDynamicFieldExpression field!"},
    {NodeKind::ElseClause, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.elseClause({t.id("s1"), t.id("s2")});
     },
     "ElseClause! getElseBody # @0 s1! # @1 s2! #"},
    {NodeKind::ElseIfClause, KindClass::Clause,
     [](TreeBuilder& t) -> NodeView {
         return t.elseIfClause(t.id("head"), {t.id("s1"), t.id("s2")});
     },
     "ElseIfClause! getElseIfCondition head! getElseIfBody # @0 s1! # @1 s2! #"},
    {NodeKind::EmptyStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.emptyStatement(); }, "EmptyStatement!"},
    {NodeKind::End, KindClass::Expression, [](TreeBuilder& t) -> NodeView { return t.end(); },
     "End!"},
    {NodeKind::EnumerationBlock, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.enumerationBlock({t.id("a1"), t.id("a2")}, {t.id("m1"), t.id("m2")});
     },
     "EnumerationBlock! getEnumerationBlockMembers # @0 m1! # @1 m2! # "
     "getEnumerationBlockAttributes # @0 a1! # @1 a2! #"},
    {NodeKind::EnumerationMember, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.enumerationMember(t.id("name"), {t.id("a1"), t.id("a2")});
     },
     "EnumerationMember! getEnumerationMemberName name! getEnumerationMemberArguments # @0 "
     "a1! # @1 a2! #"},
    {NodeKind::EventDefinition, KindClass::Other,
     [](TreeBuilder& t) -> NodeView { return t.eventDefinition(t.id("name"), t.id("part")); },
     "EventDefinition! getEventName name! getEventPart getEventPart part!"},
    {NodeKind::EventsBlock, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.eventsBlock({t.id("a1"), t.id("a2")}, {t.id("e1"), t.id("e2")});
     },
     "EventsBlock! getEventsBlockEvents # @0 e1! # @1 e2! # getEventsBlockAttributes # @0 "
     "a1! # @1 a2! #"},
    {NodeKind::ExpressionStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.expressionStatement(t.id("ans"), t.id("e")); },
     "ExpressionStatement! getExpressionStatementTarget ans! "
     "getExpressionStatementExpression e!"},
    {NodeKind::FillerNode, KindClass::Other, [](TreeBuilder& t) -> NodeView { return t.filler(); },
     "FillerNode!"},
    {NodeKind::ForStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.forLoop(t.id("i"), t.id("n"), {t.id("s1"), t.id("s2")});
     },
     "ForStatement! getForVariable i! getForExpression n! getForBody # @0 s1! # @1 s2! #"},
    {NodeKind::FunctionDefinition, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.functionDefinition({t.id("o1"), t.id("o2")}, t.id("name"),
                                     {t.id("i1"), t.id("i2")}, t.id("part"),
                                     {t.id("b1"), t.id("b2")}, {t.id("m1"), t.id("m2")});
     },
     "FunctionDefinition! getFunctionName name! getFunctionInputs # @0 i1! # @1 i2! # "
     "getFunctionOutputs # @0 o1! # @1 o2! # getFunctionPart part! "
     "getFunctionArgumentsBlocks # @0 b1! # @1 b2! # getFunctionMembers # @0 m1! # @1 m2! #"},
    {NodeKind::GlobalDeclaration, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.global({t.id("x"), t.id("y")});
     },
     "GlobalDeclaration! getGlobalIdentifiers # @0 x! # @1 y! #"},
    {NodeKind::Identifier, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.id("x"); }, "x!"},
    {NodeKind::IfStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.ifStatement(t.id("c"), {t.id("s1"), t.id("s2")}, {t.id("e1"), t.id("e2")},
                              MaybeNode(t.id("otherwise")));
     },
     "IfStatement! getIfCondition c! getIfBody # @0 s1! # @1 s2! # getIfElseIfClauses # @0 "
     "e1! # @1 e2! # getIfElseClause getIfElseClause otherwise!"},
    {NodeKind::IgnoredArgument, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.ignoredArgument(); }, "IgnoredArgument!"},
    {NodeKind::ImplicitCommandStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.implicitCommand(t.id("ans"), {t.id("w1"), t.id("w2")});
     },
     "ImplicitCommandStatement! getImplicitCommandTarget ans! getImplicitCommandWords # @0 "
     "w1! # @1 w2! #"},
    {NodeKind::InputParameter, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.inputParameterThatSays(NodeKind::Identifier, t.id("x"), t.id("ignored"));
     },
     "InputParameter! getInputParameterKind getInputParameterIdentifier x!"},
    {NodeKind::Matrix, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView {
         return t.matrix({t.id("r1"), t.id("r2")});
     },
     "Matrix! getMatrixRows # @0 r1! # @1 r2! #"},
    {NodeKind::MethodDeclaration, KindClass::Method,
     [](TreeBuilder& t) -> NodeView {
         return t.methodDeclaration({t.id("o1"), t.id("o2")}, t.id("name"),
                                    {t.id("i1"), t.id("i2")});
     },
     "MethodDeclaration! getMethodName name! getMethodInputs # @0 i1! # @1 i2! # "
     "getMethodOutputs # @0 o1! # @1 o2! #"},
    {NodeKind::MethodDefinition, KindClass::Method,
     [](TreeBuilder& t) -> NodeView {
         return t.methodDefinition({t.id("o1"), t.id("o2")}, t.id("name"), {t.id("i1"), t.id("i2")},
                                   t.id("part"), {t.id("b1"), t.id("b2")},
                                   {t.id("m1"), t.id("m2")});
     },
     "MethodDefinition! getMethodName name! getMethodInputs # @0 i1! # @1 i2! # "
     "getMethodOutputs # @0 o1! # @1 o2! # getMethodPart part! getMethodArgumentsBlocks # @0 "
     "b1! # @1 b2! # getMethodMembers # @0 m1! # @1 m2! #"},
    {NodeKind::MethodsBlock, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.methodsBlock({t.id("a1"), t.id("a2")}, {t.id("m1"), t.id("m2")});
     },
     "MethodsBlock! getMethodsBlockMethods # @0 m1! # @1 m2! # getMethodsBlockAttributes # "
     "@0 a1! # @1 a2! #"},
    {NodeKind::MultiAssignmentStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.multiAssign({t.id("x"), t.id("y")}, t.id("right"));
     },
     "MultiAssignmentStatement! getMultiAssignmentTargets # @0 x! # @1 y! # "
     "getMultiAssignmentRhs right!"},
    {NodeKind::NamedArgument, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.namedArgument(t.id("name"), t.id("value")); },
     "NamedArgument! getNamedArgumentName name! getNamedArgumentValue value!"},
    {NodeKind::NumberLiteral, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.number(); }, "NumberLiteral!"},
    {NodeKind::OtherwiseClause, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.otherwiseClause({t.id("s1"), t.id("s2")});
     },
     "OtherwiseClause! getOtherwiseBody # @0 s1! # @1 s2! #"},
    {NodeKind::ParenOperation, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView {
         return t.paren(t.id("base"), {t.id("a1"), t.id("a2")});
     },
     "ParenOperation! getParenBase base! getParenArguments # @0 a1! # @1 a2! #"},
    {NodeKind::ParenthesizedExpression, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.parenthesized(t.id("inner")); },
     "ParenthesizedExpression! getParenthesizedInner inner!"},
    {NodeKind::ParforStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.parforLoop(t.id("i"), t.id("n"), {t.id("s1"), t.id("s2")},
                             {t.id("o1"), t.id("o2")});
     },
     "ParforStatement! getParforVariable i! getParforExpression n! getParforOptions # @0 o1! "
     "# @1 o2! # getParforBody # @0 s1! # @1 s2! #"},
    {NodeKind::PersistentDeclaration, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.persistent({t.id("x"), t.id("y")});
     },
     "PersistentDeclaration! getPersistentIdentifiers # @0 x! # @1 y! #"},
    {NodeKind::PrintStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.print(t.id("s")); },
     "PrintStatement! getPrintedStatement s!"},
    {NodeKind::Program, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.program({t.id("n1"), t.id("n2")});
     },
     "Program! getProgramNodes # @0 n1! # @1 n2! #"},
    {NodeKind::PropertiesBlock, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.propertiesBlock({t.id("a1"), t.id("a2")}, {t.id("p1"), t.id("p2")});
     },
     "PropertiesBlock! getPropertiesBlockProperties # @0 p1! # @1 p2! # "
     "getPropertiesBlockAttributes # @0 a1! # @1 a2! #"},
    {NodeKind::PropertyDefinition, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.propertyDefinition(t.id("name"), t.id("p1"), t.id("p2"));
     },
     "PropertyDefinition! getPropertyName name! getPropertyPart1 getPropertyPart1 p1! "
     "getPropertyPart2 getPropertyPart2 p2!"},
    {NodeKind::ReturnStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView { return t.returnStatement(); }, "ReturnStatement!"},
    {NodeKind::Row, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView {
         return t.row({t.id("e1"), t.id("e2")});
     },
     "Row! getRowExpressions # @0 e1! # @1 e2! #"},
    {NodeKind::SpmdStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.spmd({t.id("s1"), t.id("s2")}, {t.id("o1"), t.id("o2")});
     },
     "SpmdStatement! getSpmdOptions # @0 o1! # @1 o2! # getSpmdBody # @0 s1! # @1 s2! #"},
    {NodeKind::StringLiteral, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.stringLiteral(t.id("part")); },
     "StringLiteral! getStringLiteralPart getStringLiteralPart part!"},
    {NodeKind::SwitchStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.switchStatement(t.id("subject"), {t.id("c1"), t.id("c2")}, t.id("otherwise"));
     },
     "SwitchStatement! getSwitchSubject subject! getSwitchCases # @0 c1! # @1 c2! # "
     "getSwitchOtherwise getSwitchOtherwise otherwise!"},
    {NodeKind::TryStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.tryStatement({t.id("s1"), t.id("s2")}, t.id("handler"));
     },
     "TryStatement! getTryBody # @0 s1! # @1 s2! # getTryCatch getTryCatch handler!"},
    {NodeKind::UnaryOperation, KindClass::Expression,
     [](TreeBuilder& t) -> NodeView { return t.minus(t.id("x")); },
     "UnaryOperation! getUnaryOperand x!"},
    {NodeKind::ValidationSpecification, KindClass::Other,
     [](TreeBuilder& t) -> NodeView {
         return t.validationSpecification({t.id("f1"), t.id("f2")}, t.id("part"),
                                          {t.id("s1"), t.id("s2")});
     },
     "ValidationSpecification! getValidationFirstExpressions # @0 f1! # @1 f2! # "
     "getValidationPart getValidationPart part! getValidationSecondExpressions # @0 s1! # @1 "
     "s2! #"},
    {NodeKind::WhileStatement, KindClass::Statement,
     [](TreeBuilder& t) -> NodeView {
         return t.whileLoop(t.id("c"), {t.id("s1"), t.id("s2")});
     },
     "WhileStatement! getWhileCondition c! getWhileBody # @0 s1! # @1 s2! #"},
};

const std::vector<WalkTrace> BARE_TRACES = {
    {NodeKind::AnonymousFunction,
     [](TreeBuilder& t) -> NodeView { return t.anonymousFunction({}, t.id("body")); },
     "AnonymousFunction! getAnonymousFunctionParameters # getAnonymousFunctionBody body!"},
    {NodeKind::ArgumentDeclaration,
     [](TreeBuilder& t) -> NodeView { return t.argumentDeclaration(t.id("name")); },
     "ArgumentDeclaration! getArgumentDeclarationName name! getArgumentDeclarationPart1 "
     "getArgumentDeclarationPart2 getArgumentDeclarationPart3 getArgumentDeclarationPart4"},
    {NodeKind::ArgumentsBlock, [](TreeBuilder& t) -> NodeView { return t.argumentsBlock({}, {}); },
     "ArgumentsBlock! getArgumentsBlockAttributes # getArgumentsBlockDeclarations #"},
    {NodeKind::Attribute, [](TreeBuilder& t) -> NodeView { return t.attribute(t.id("name")); },
     "Attribute! getAttributeName name! getAttributeValue"},
    {NodeKind::BraceOperation, [](TreeBuilder& t) -> NodeView { return t.brace(t.id("base"), {}); },
     "BraceOperation! getBraceBase base! getBraceArguments #"},
    {NodeKind::CaseClause,
     [](TreeBuilder& t) -> NodeView { return t.caseClause(t.id("head"), {}); },
     "CaseClause! getCaseExpression head! getCaseBody #"},
    {NodeKind::CatchClause, [](TreeBuilder& t) -> NodeView { return t.catchClause({}, {}); },
     "CatchClause! getCatchIdentifier getCatchBody #"},
    {NodeKind::CellArray, [](TreeBuilder& t) -> NodeView { return t.cellArray({}); },
     "CellArray! getCellArrayRows #"},
    {NodeKind::CharacterLiteral, [](TreeBuilder& t) -> NodeView { return t.characterLiteral(); },
     "CharacterLiteral! getCharacterLiteralPart"},
    {NodeKind::ClassDefinition,
     [](TreeBuilder& t) -> NodeView { return t.classDefinition({}, t.id("name"), {}, {}); },
     "ClassDefinition! getClassAttributes # getClassName name! getClassSuperclasses # "
     "getClassMembers #"},
    {NodeKind::ColonOperation,
     [](TreeBuilder& t) -> NodeView { return t.colonOperation(t.id("start"), {}, t.id("stop")); },
     "ColonOperation! getColonStart start! getColonStep getColonStop stop!"},
    {NodeKind::CommandStatement,
     [](TreeBuilder& t) -> NodeView { return t.command(t.id("target"), t.id("callee"), {}); },
     "CommandStatement! getCommandTarget target! getCommandCallee callee! getCommandWords #"},
    {NodeKind::ElseClause, [](TreeBuilder& t) -> NodeView { return t.elseClause({}); },
     "ElseClause! getElseBody #"},
    {NodeKind::ElseIfClause,
     [](TreeBuilder& t) -> NodeView { return t.elseIfClause(t.id("head"), {}); },
     "ElseIfClause! getElseIfCondition head! getElseIfBody #"},
    {NodeKind::EnumerationBlock,
     [](TreeBuilder& t) -> NodeView { return t.enumerationBlock({}, {}); },
     "EnumerationBlock! getEnumerationBlockMembers # getEnumerationBlockAttributes #"},
    {NodeKind::EnumerationMember,
     [](TreeBuilder& t) -> NodeView { return t.enumerationMember(t.id("name"), {}); },
     "EnumerationMember! getEnumerationMemberName name! getEnumerationMemberArguments #"},
    {NodeKind::EventDefinition,
     [](TreeBuilder& t) -> NodeView { return t.eventDefinition(t.id("name")); },
     "EventDefinition! getEventName name! getEventPart"},
    {NodeKind::EventsBlock, [](TreeBuilder& t) -> NodeView { return t.eventsBlock({}, {}); },
     "EventsBlock! getEventsBlockEvents # getEventsBlockAttributes #"},
    {NodeKind::ForStatement,
     [](TreeBuilder& t) -> NodeView { return t.forLoop(t.id("i"), t.id("n"), {}); },
     "ForStatement! getForVariable i! getForExpression n! getForBody #"},
    {NodeKind::FunctionDefinition,
     [](TreeBuilder& t) -> NodeView {
         return t.functionDefinition({}, t.id("name"), {}, t.id("part"), {}, {});
     },
     "FunctionDefinition! getFunctionName name! getFunctionInputs # getFunctionOutputs # "
     "getFunctionPart part! getFunctionArgumentsBlocks # getFunctionMembers #"},
    {NodeKind::GlobalDeclaration, [](TreeBuilder& t) -> NodeView { return t.global({}); },
     "GlobalDeclaration! getGlobalIdentifiers #"},
    {NodeKind::IfStatement, [](TreeBuilder& t) -> NodeView { return t.ifStatement(t.id("c"), {}); },
     "IfStatement! getIfCondition c! getIfBody # getIfElseIfClauses # getIfElseClause"},
    {NodeKind::ImplicitCommandStatement,
     [](TreeBuilder& t) -> NodeView { return t.implicitCommand(t.id("ans"), {}); },
     "ImplicitCommandStatement! getImplicitCommandTarget ans! getImplicitCommandWords #"},
    {NodeKind::InputParameter,
     [](TreeBuilder& t) -> NodeView {
         return t.inputParameterThatSays(NodeKind::IgnoredArgument, {}, {});
     },
     "InputParameter! getInputParameterKind getInputParameterIgnored"},
    {NodeKind::Matrix, [](TreeBuilder& t) -> NodeView { return t.matrix({}); },
     "Matrix! getMatrixRows #"},
    {NodeKind::MethodDeclaration,
     [](TreeBuilder& t) -> NodeView { return t.methodDeclaration({}, t.id("name"), {}); },
     "MethodDeclaration! getMethodName name! getMethodInputs # getMethodOutputs #"},
    {NodeKind::MethodDefinition,
     [](TreeBuilder& t) -> NodeView {
         return t.methodDefinition({}, t.id("name"), {}, t.id("part"), {}, {});
     },
     "MethodDefinition! getMethodName name! getMethodInputs # getMethodOutputs # "
     "getMethodPart part! getMethodArgumentsBlocks # getMethodMembers #"},
    {NodeKind::MethodsBlock, [](TreeBuilder& t) -> NodeView { return t.methodsBlock({}, {}); },
     "MethodsBlock! getMethodsBlockMethods # getMethodsBlockAttributes #"},
    {NodeKind::MultiAssignmentStatement,
     [](TreeBuilder& t) -> NodeView { return t.multiAssign({}, t.id("right")); },
     "MultiAssignmentStatement! getMultiAssignmentTargets # getMultiAssignmentRhs right!"},
    {NodeKind::OtherwiseClause, [](TreeBuilder& t) -> NodeView { return t.otherwiseClause({}); },
     "OtherwiseClause! getOtherwiseBody #"},
    {NodeKind::ParenOperation, [](TreeBuilder& t) -> NodeView { return t.paren(t.id("base"), {}); },
     "ParenOperation! getParenBase base! getParenArguments #"},
    {NodeKind::ParforStatement,
     [](TreeBuilder& t) -> NodeView { return t.parforLoop(t.id("i"), t.id("n"), {}); },
     "ParforStatement! getParforVariable i! getParforExpression n! getParforOptions # "
     "getParforBody #"},
    {NodeKind::PersistentDeclaration, [](TreeBuilder& t) -> NodeView { return t.persistent({}); },
     "PersistentDeclaration! getPersistentIdentifiers #"},
    {NodeKind::Program, [](TreeBuilder& t) -> NodeView { return t.program({}); },
     "Program! getProgramNodes #"},
    {NodeKind::PropertiesBlock,
     [](TreeBuilder& t) -> NodeView { return t.propertiesBlock({}, {}); },
     "PropertiesBlock! getPropertiesBlockProperties # getPropertiesBlockAttributes #"},
    {NodeKind::PropertyDefinition,
     [](TreeBuilder& t) -> NodeView { return t.propertyDefinition(t.id("name")); },
     "PropertyDefinition! getPropertyName name! getPropertyPart1 getPropertyPart2"},
    {NodeKind::Row, [](TreeBuilder& t) -> NodeView { return t.row({}); },
     "Row! getRowExpressions #"},
    {NodeKind::SpmdStatement, [](TreeBuilder& t) -> NodeView { return t.spmd({}); },
     "SpmdStatement! getSpmdOptions # getSpmdBody #"},
    {NodeKind::StringLiteral, [](TreeBuilder& t) -> NodeView { return t.stringLiteral(); },
     "StringLiteral! getStringLiteralPart"},
    {NodeKind::SwitchStatement,
     [](TreeBuilder& t) -> NodeView { return t.switchStatement(t.id("subject"), {}); },
     "SwitchStatement! getSwitchSubject subject! getSwitchCases # getSwitchOtherwise"},
    {NodeKind::TryStatement, [](TreeBuilder& t) -> NodeView { return t.tryStatement({}); },
     "TryStatement! getTryBody # getTryCatch"},
    {NodeKind::ValidationSpecification,
     [](TreeBuilder& t) -> NodeView { return t.validationSpecification({}, {}, {}); },
     "ValidationSpecification! getValidationFirstExpressions # getValidationPart "
     "getValidationSecondExpressions #"},
    {NodeKind::WhileStatement,
     [](TreeBuilder& t) -> NodeView { return t.whileLoop(t.id("c"), {}); },
     "WhileStatement! getWhileCondition c! getWhileBody #"},
};

} // namespace zt::orvex::testing

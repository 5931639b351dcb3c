#pragma once
// MessageId: the number of a built-in message, 0 to MessageCount - 1. The
// numbers are fixed: they are also the error codes of the macro language
// (0 there means "no error") and the names of help pages, so the table's
// order never changes. Any id converts explicitly: MessageId{174}.

enum class MessageId : int {
    Main = 0,  // "MAIN": the help's main node, never translated
    Tabulations = 48,
    SavingInProgress = 60,
    LoadingFile = 61,
    LoadingInProgress = 63,
    EmptyFile = 65,
    NoFileToLoad = 66,
    DeleteAllText = 67,
    LoseModifiedText = 68,
    OverwriteFile = 69,
    WritingFile = 73,
    BackupExtension = 74,
    SavingIcon = 75,
    ErrorSavingIcon = 76,
    CreatingBackup = 77,
    SavingText = 81,
    RenameDocument = 84,
    RenamingFile = 85,
    DosError = 88,
    Yes = 89,
    No = 90,
    Ok = 92,
    Cancel = 99,
    NewWindow = 120,
    NoName = 174,
    LineTooLong = 175,
    Modified = 176,
    NoBlockMarked = 177,
    TavrelError = 198,
    KeysAccessDenied = 201,
    MenusAccessDenied = 202,
    ErrorCreatingMenus = 203,
    LibraryError = 204,
    // The errors of the macro language.
    StackOverflow = 205,
    IncorrectNumber = 206,
    UncompleteExpression = 207,
    IncorrectOperator = 208,
    SyntaxError = 209,
    ExpressionTooComplex = 210,
    IncorrectOperand = 211,
    BadParenthesis = 212,
    MissingOperator = 213,
    IncorrectArgument = 214,
    IncorrectArgumentValue = 215,
    ErrorAnalysis = 216,
    BadArgumentNumber = 217,
    NotEnoughMemory = 218,
    DivisionByZero = 219,
    VariableCreationImpossible = 220,
    AllocationImpossible = 221,
    VariableNameTooLong = 222,
    UnknownFunction = 223,
    LoopOverflow = 224,
    FunctionAlreadyDefined = 225,
    FunctionNameTooLong = 226,
    IncorrectArgumentName = 227,
    IncorrectExpression = 228,
    InterruptionOfCalculations = 229,
    IncorrectString = 230,
    StringProcessingImpossible = 231,
    VariableTypeMismatch = 232,
    ArgumentTypeMismatch = 233,
    ForbiddenInDirectMode = 234,
    IncorrectDate = 235,
    IncorrectOperandType = 236,
    SameArgumentTwice = 237,
    MissingArgument = 238,
    ErrorOpeningScreen = 239,
    ErrorOpeningWindow = 240,
    WindowIsBusy = 241,
    WindowNotFound = 242,
};

inline constexpr int MessageCount = 249;

constexpr bool IsValidMessageId(MessageId id)
{
    return static_cast<int>(id) >= 0 && static_cast<int>(id) < MessageCount;
}

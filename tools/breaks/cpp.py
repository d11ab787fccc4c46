"""Finds what can be broken in a C++ source or header. Clang tells what is what, so that nearly every
break compiles and none lies in a comment."""

import functools
import re
import shlex

from clang.cindex import (CursorKind as Kind, Index, TokenKind, TranslationUnit,
                          TranslationUnitLoadError, TypeKind)

from .onebreak import (ARGUMENT, BOOLEAN, CONNECTION, EMPTIED, NEGATED, NUMBER, OPERATOR, REMOVED, SIGNAL,
                       SWAPPED, UNTRANSLATED, Break, in_order)

SIGNALS = {b"btnClicked": b"btnReleased", b"btnReleased": b"btnClicked", b"clicked": b"pressed"}

CONNECTIONS = [b"Qt::AutoConnection", b"Qt::DirectConnection", b"Qt::QueuedConnection",
               b"Qt::BlockingQueuedConnection"]

BOOLEANS = {b"true": b"false", b"false": b"true"}

OPERATORS = {b"<": b"<=", b"<=": b"<", b">": b">=", b">=": b">", b"==": b"!=", b"!=": b"==",
             b"&&": b"||", b"||": b"&&", b"+": b"-", b"-": b"+", b"*": b"/", b"/": b"*",
             b"<<": b">>", b">>": b"<<", b"&": b"|", b"%": b"*",
             b"+=": b"-=", b"-=": b"+=", b"|=": b"&=", b"&=": b"|=", b"^=": b"|=",
             b"<<=": b">>=", b">>=": b"<<="}

BLOCKS = {Kind.COMPOUND_STMT, Kind.IF_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT,
          Kind.SWITCH_STMT, Kind.CXX_TRY_STMT}

FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.CONVERSION_FUNCTION, Kind.FUNCTION_TEMPLATE, Kind.LAMBDA_EXPR}

INTEGER = re.compile(rb"(0[xX][0-9a-fA-F]+|\d+)([uUlL]*)$")
FLOAT = re.compile(rb"(\d*\.\d+|\d+\.)([fFlL]?)$")
TEXT = re.compile(rb'((?:u8|u|U|L)?)"(.*)"$', re.S)
CHARACTER = re.compile(rb"((?:u8|u|U|L)?)'(.*)'$", re.S)
NAME_AT_END = re.compile(rb"\w+$")


class NotParsed(Exception):
    pass


def find(file, path, source, command, directory):
    """All breaks of the file, which lies at path, found while its user is compiled by command."""
    return Finder(file, path, source, parsed(command, directory)).find()


@functools.lru_cache(maxsize=1)  # A header comes next to its source, which it is parsed with.
def parsed(command, directory):
    words = shlex.split(command)
    # A compiler launcher stands ahead of the compiler.
    first = next(i for i, word in enumerate(words) if word.startswith("-"))
    options, source, words = [], None, iter(words[first:])
    for word in words:
        if word == "-o":
            next(words)
        elif word == "-c":
            source = next(words)
        elif not word.startswith(("-Werror", "-fpch", "-ffile-prefix-map")):
            options.append(word)
    try:
        unit = Index.create().parse(source, ["-working-directory", directory, "-w", *options],
                                    options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    except TranslationUnitLoadError as error:
        raise NotParsed(f"{source} cannot be read by clang") from error
    errors = [each for each in unit.diagnostics if each.severity >= each.Error]
    if errors:
        where = errors[0].location
        raise NotParsed(f"{where.file}:{where.line}: {errors[0].spelling}")
    return unit


class Finder:
    def __init__(self, file, path, source, unit):
        self.file = file
        self.path = str(path)
        self.source = source
        self.unit = unit
        self.breaks = {}
        self.macros = []
        self.functions = []

    def find(self):
        tops = [top for top in self.unit.cursor.get_children() if self.is_here(top)]
        self.macros = [self.span(top) for top in tops if top.kind == Kind.MACRO_INSTANTIATION]
        self.tokens()
        for top in tops:
            if not top.kind.is_preprocessing():
                self.visit(top)
        return in_order(self.breaks.values())

    def add(self, kind, start, end, text):
        if self.source[start:end] != text:
            found = Break(self.file, kind, start, end, text)
            self.breaks.setdefault((start, end, text), found)

    def is_here(self, cursor):
        file = cursor.extent.start.file
        return file is not None and file.name == self.path

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def text(self, cursor):
        start, end = self.span(cursor)
        return self.source[start:end]

    def is_written(self, cursor):
        """Whether the cursor stands for a text of this file, not for what a macro makes of it."""
        if not self.is_here(cursor) or cursor.extent.end.file is None:
            return False
        start, end = self.span(cursor)
        return start < end and not any(first <= start and end <= last for first, last in self.macros)

    # What a token tells

    def tokens(self):
        whole = self.unit.get_extent(self.path, ((1, 1), self.end_of_file()))
        directive, before = 0, b""
        for token in self.unit.get_tokens(extent=whole):
            start, end = token.extent.start.offset, token.extent.end.offset
            text = self.source[start:end]
            if text == b"#":
                directive = token.location.line
            is_directive = directive == token.location.line and not self.is_macro(start)
            if not is_directive and before != b"extern":
                self.token(token.kind, start, end, text)
            before = text

    def end_of_file(self):
        lines = self.source.split(b"\n")
        return len(lines), len(lines[-1]) + 1

    def is_macro(self, offset):
        first = self.source.rfind(b"\n", 0, offset) + 1
        return re.match(rb"\s*#\s*define\b", self.source[first:offset]) is not None

    def token(self, kind, start, end, text):
        if kind == TokenKind.LITERAL:
            self.literal(start, end, text)
        elif text in BOOLEANS:
            self.add(BOOLEAN, start, end, BOOLEANS[text])
        elif kind == TokenKind.IDENTIFIER and text in SIGNALS:
            self.add(SIGNAL, start, end, SIGNALS[text])
        elif text == b"Qt":
            self.connection_type(start)

    def literal(self, start, end, text):
        integer, number = INTEGER.match(text), FLOAT.match(text)
        string, character = TEXT.match(text), CHARACTER.match(text)
        if integer:
            self.integer(start, end, *integer.groups())
        elif number:
            for step in (1, -1):
                value = float(number.group(1)) + step
                self.add(NUMBER, start, end, b"%r%s" % (value, number.group(2)))
        elif string and string.group(2):
            self.add(EMPTIED, start, end, string.group(1) + b'""')
        elif character:
            self.add(EMPTIED, start, end, character.group(1) + b"'\\0'")

    def integer(self, start, end, digits, suffix):
        is_hex = digits[:2] in (b"0x", b"0X")
        is_octal = not is_hex and len(digits) > 1 and digits.startswith(b"0")
        value = int(digits, 16 if is_hex else 8 if is_octal else 10)
        for step in (1, -1):
            sign = b"-" if value + step < 0 else b""
            form = b"0x%X" if is_hex else b"0%o" if is_octal else b"%d"
            changed = sign + form % abs(value + step) + suffix
            is_after_sign = self.source[:start].rstrip().endswith((b"-", b"+"))
            self.add(NUMBER, start, end, b"(%s)" % changed if sign and is_after_sign else changed)

    def connection_type(self, start):
        match = re.match(rb"Qt::\w+Connection\b", self.source[start:])
        if match and match.group() in CONNECTIONS:
            for other in CONNECTIONS:
                self.add(CONNECTION, start, start + match.end(), other)

    # What the syntax tells

    def visit(self, cursor):
        is_function = cursor.kind in FUNCTIONS
        if is_function:
            self.functions.append(cursor)
        if self.is_here(cursor):
            self.cursor(cursor)
        for child in cursor.get_children():
            self.visit(child)
        if is_function:
            self.functions.pop()

    def cursor(self, cursor):
        if cursor.kind == Kind.COMPOUND_STMT:
            self.block(cursor)
        elif cursor.kind in (Kind.CASE_STMT, Kind.DEFAULT_STMT):
            self.removed(list(cursor.get_children())[-1], b";")
        elif cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            self.operator(list(cursor.get_children()))
        elif cursor.kind == Kind.CALL_EXPR:
            self.call(cursor)
        elif cursor.kind == Kind.INIT_LIST_EXPR:
            self.arguments(list(cursor.get_children()))
        elif cursor.kind == Kind.DECL_REF_EXPR:
            self.enumerator(cursor)
        elif cursor.kind == Kind.UNARY_OPERATOR:
            self.step(cursor)
        condition = self.condition(cursor)
        if condition is not None and self.is_written(condition):
            self.add(NEGATED, *self.span(condition), b"!(%s)" % self.text(condition))

    def condition(self, cursor):
        children = list(cursor.get_children())
        if cursor.kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
            # A variable that is declared there cannot be negated.
            return children[0] if children[0].kind.is_expression() else None
        if cursor.kind == Kind.DO_STMT:
            return children[1]
        if cursor.kind == Kind.FOR_STMT:
            booleans = [child for child in children[:-1] if is_boolean(child)]
            return booleans[0] if len(booleans) == 1 else None
        if cursor.kind == Kind.RETURN_STMT and children and is_boolean(children[0]):
            return children[0]
        return None

    def statement(self, cursor):
        """Where the statement begins and ends, its semicolon included, or None."""
        if not self.is_here(cursor):
            return None
        start, end = self.span(cursor)
        if cursor.kind in BLOCKS and self.source[start:end].endswith(b"}"):
            return start, end
        semicolon = re.match(rb"\s*;", self.source[end:])
        if semicolon:
            return start, end + semicolon.end()
        # Clang counts a declaration's semicolon in.
        return (start, end) if self.source[start:end].endswith(b";") else None

    def block(self, block):
        statements = list(block.get_children())
        for number, statement in enumerate(statements):
            if not self.is_needed_return(block, statement):
                self.removed(statement, b"")
            if number > 0:
                self.swapped(statements[number - 1], statement)

    def is_needed_return(self, block, statement):
        """Whether a function would come to its end without a value."""
        body = [child for child in self.functions[-1].get_children() if child.kind == Kind.COMPOUND_STMT]
        return (statement.kind == Kind.RETURN_STMT and any(statement.get_children())
                and block in body)

    def removed(self, statement, text):
        if statement.kind == Kind.DECL_STMT and not self.is_unnamed(statement):
            return
        span = self.statement(statement)
        if span:
            self.add(REMOVED, *span, text)

    def is_unnamed(self, declaration):
        """Whether nothing names what is declared, which may be there for what its making does."""
        start, end = self.span(self.functions[-1])
        body = self.source[start:end]
        return all(len(re.findall(rb"\b%s\b" % re.escape(child.spelling.encode()), body)) == 1
                   for child in declaration.get_children() if child.spelling)

    def swapped(self, one, other):
        first, second = self.statement(one), self.statement(other)
        if not first or not second or first[1] > second[0] or other.kind == Kind.RETURN_STMT:
            return
        if one.kind == Kind.DECL_STMT and self.names_any(self.source[slice(*second)], one):
            return
        # Connections of different signals have no order.
        if not self.source[first[0]:first[1]].startswith(b"connect(") \
                or not self.source[second[0]:second[1]].startswith(b"connect("):
            between = self.source[first[1]:second[0]]
            text = self.source[slice(*second)] + between + self.source[slice(*first)]
            self.add(SWAPPED, first[0], second[1], text)

    def names_any(self, text, declaration):
        names = [child.spelling.encode() for child in declaration.get_children() if child.spelling]
        return any(re.search(rb"\b%s\b" % re.escape(name), text) for name in names)

    def operator(self, operands):
        if len(operands) != 2 or not all(self.is_here(operand) for operand in operands):
            return
        start, end = self.span(operands[0])[1], self.span(operands[1])[0]
        between = self.source[start:end]
        sign = between.strip()
        start += len(between) - len(between.lstrip())
        end -= len(between) - len(between.rstrip())
        if sign in OPERATORS:
            self.add(OPERATOR, start, end, OPERATORS[sign])
        elif sign == b"|":
            whole = self.span(operands[0])[0], self.span(operands[1])[1]
            self.add(OPERATOR, *whole, self.text(operands[0]))
            self.add(OPERATOR, *whole, self.text(operands[1]))

    def step(self, cursor):
        """Counting up and counting down."""
        start, end = self.span(cursor)
        for sign, other in ((b"++", b"--"), (b"--", b"++")):
            if self.source[start:end].startswith(sign):
                self.add(OPERATOR, start, start + 2, other)
            elif self.source[start:end].endswith(sign):
                self.add(OPERATOR, end - 2, end, other)

    # What is called

    def call(self, call):
        if not self.is_written(call):
            return
        if re.match(r"operator\W", call.spelling):
            children = list(call.get_children())
            if len(children) == 3 and self.text(children[1]) in (b"==", b"!=", b"<", b">", b"+="):
                self.add(OPERATOR, *self.span(children[1]), OPERATORS[self.text(children[1])])
            return
        arguments = list(call.get_arguments())
        self.arguments(arguments)
        if call.spelling == "connect":
            self.connect(call, arguments)
        elif call.spelling in ("tr", "translate"):
            self.translation(call)

    def connect(self, call, arguments):
        written = [each for each in arguments if each is not None and self.is_here(each)
                   and self.span(each)[0] < self.span(each)[1]]
        text = self.text(call)
        if b"Connection" in text or len(written) < 4 or not text.endswith(b")"):
            return
        end = self.span(call)[1]
        self.add(CONNECTION, end - 1, end, b", Qt::QueuedConnection)")
        # A widget's signal is a direct call anyway: all widgets live on one thread.
        if not is_widget(written[0].type):
            self.add(CONNECTION, end - 1, end, b", Qt::DirectConnection)")

    def translation(self, call):
        match = re.match(rb"(?:\w+::)*tr(\(.*\))$", self.text(call), re.S)
        if match:
            self.add(UNTRANSLATED, *self.span(call), b"QString::fromUtf8" + match.group(1))

    def arguments(self, arguments):
        written = [each for each in arguments if each is not None and self.is_here(each)
                   and self.span(each)[0] < self.span(each)[1]]
        for argument in written:
            span, text = self.span(argument), self.text(argument)
            kind = plain_type(argument)
            others = [other for other in written if plain_type(other) == kind and self.text(other) != text]
            if others and kind:
                self.add(ARGUMENT, *span, self.text(others[0]))
            if self.is_written(argument):
                self.renamed(argument)

    def renamed(self, argument):
        """The argument with the name of another variable, member or function of its type in its place."""
        named = core(argument)
        meant = named.referenced if named is not None else None
        if meant is None:
            return
        if meant.kind in (Kind.FIELD_DECL, Kind.CXX_METHOD):
            siblings = [child for child in meant.semantic_parent.get_children()
                        if child.kind == meant.kind]
        elif meant.kind in (Kind.VAR_DECL, Kind.PARM_DECL):
            siblings = self.variables(meant)
        else:
            return
        self.sibling(argument, meant, siblings)

    def variables(self, meant):
        """The variables of the scope of the one that is meant, as far as they are declared ahead."""
        if meant.semantic_parent.kind in (Kind.NAMESPACE, Kind.TRANSLATION_UNIT):
            return [child for child in meant.semantic_parent.get_children()
                    if child.kind == Kind.VAR_DECL and self.is_here(child)]
        if not self.functions:
            return []
        return [each for each in self.functions[-1].walk_preorder()
                if each.kind in (Kind.VAR_DECL, Kind.PARM_DECL) and each.spelling]

    def enumerator(self, cursor):
        meant = cursor.referenced
        if meant is not None and meant.kind == Kind.ENUM_CONSTANT_DECL and self.is_written(cursor):
            if not self.text(cursor).endswith(b"Connection"):
                self.sibling(cursor, meant, list(meant.semantic_parent.get_children()))

    def sibling(self, cursor, meant, siblings):
        """In the cursor's place the next of the siblings that has the type of the one that is meant."""
        kind = meant.type.get_canonical().spelling
        names = list(dict.fromkeys(each.spelling.encode() for each in siblings
                                   if each.type.get_canonical().spelling == kind))
        name = meant.spelling.encode()
        match = NAME_AT_END.search(self.text(cursor))
        if name in names and len(names) > 1 and match and match.group() == name:
            other = names[(names.index(name) + 1) % len(names)]
            self.add(ARGUMENT, *self.span(cursor), self.text(cursor)[:match.start()] + other)


def core(cursor):
    """What is named by an expression that is only a name: `x`, `a.x`, `ui->x`, `&Class::x`."""
    while cursor.kind in (Kind.UNEXPOSED_EXPR, Kind.UNARY_OPERATOR, Kind.CALL_EXPR):
        children = list(cursor.get_children())
        if len(children) != 1:
            return None
        cursor = children[0]
    return cursor if cursor.kind in (Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR) else None


def is_boolean(cursor):
    return cursor.type.get_canonical().kind == TypeKind.BOOL


def plain_type(cursor):
    while cursor.kind == Kind.UNEXPOSED_EXPR and len(list(cursor.get_children())) == 1:
        cursor = next(cursor.get_children())
    spelling = cursor.type.get_canonical().spelling
    return re.sub(r"\bconst\b|&", "", spelling).strip()


def is_widget(kind):
    """Whether it is a pointer to a widget."""
    return inherits(kind.get_canonical().get_pointee().get_declaration(), "QWidget")


def inherits(declaration, name):
    definition = declaration.get_definition() or declaration
    if definition.spelling == name:
        return True
    return any(inherits(base.type.get_canonical().get_declaration(), name)
               for base in definition.get_children() if base.kind == Kind.CXX_BASE_SPECIFIER)

"""Random projects with everything that a model can have, and recordings for them."""
import random
import struct

# Words of the languages, of the generated code and of the operating system, and names that differ in case only.
ITEM_NAMES = """CLASS NEW OPERATOR INT VALUE MESSAGE HEADER ITEMS FORMAT COUNT LIST SELF CODEC MEMBER TO_SML DEFAULT YIELD WAIT
    GET_CLASS Lot LOT lot2 BASE EVENT STRING Object READ EQUALS NAME APPLIES VALUE_OF_LOT COMPUTE_LOT 1ST X_ AND LINUX
    kHead kName kIsReported""".split()
MESSAGE_NAMES = """class Class Message String Process System Value PlugIn Encoder Any List Main Error Received Con Link Object Record
    double DOUBLE Lot_Done LotDone Transport Exception Zelto Messages Header""".split()
PROJECT_NAMES = ["class", "java", "System", "2nd project", "Zelto", "Messages", "std", "P-8", "Etcher", "Größe"]
CODES = {"B": 0o10, "BOOLEAN": 0o11, "A": 0o20, "J": 0o21, "I8": 0o30, "I1": 0o31, "I2": 0o32, "I4": 0o34, "F8": 0o40,
         "F4": 0o44, "U8": 0o50, "U1": 0o51, "U2": 0o52, "U4": 0o54}
FLOATS = {"F4": [0.0, -0.0, 0.1, 1e-5, 1e-4, 0.001, 1e5, 123456.0, 1e10, 16777216.0, 2.5, -3.75, 3.4028234663852886e38, 1e-45,
                 1234567936.0, 9.5367431640625e-07],
          "F8": [0.0, -0.0, 0.1, 1e-5, 1e5, 1e21, 1e22, 1e23, 5e-324, 2.0 ** 60, 2.0 ** 63, 9007199254740993.0, 2.0 ** -44,
                 1.7976931348623157e308, 0.30000000000000004, -123456.789, 299792458.0]}
TEXTS = ["", "A", "LOT 1", "it's", "PP-SELECT", 'say "x"', "back\\slash", "{value}", "${x}", "*/ //"]


def head(code, length):
    size = 1 if length < 0x100 else 2 if length < 0x10000 else 3
    return bytes([code << 2 | size]) + length.to_bytes(size, "big")


class Item:
    def __init__(self, kind, name, count, is_fixed, members=()):
        self.kind, self.name, self.count, self.is_fixed, self.members = kind, name, count, is_fixed, list(members)
        self.is_key = False
        self.value = ""

    def lines(self, depth):
        count = f"{self.count}{'' if self.is_fixed else 'V'}"
        words = [self.kind, count, self.name, self.value if self.kind != "L" else "", "[K]" if self.is_key else ""]
        yield "    " * depth + " ".join(word for word in words if word)
        for member in self.members:
            yield from member.lines(depth + 1)


class Maker:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.names = []

    def name(self):
        return self.names.pop() if self.names else ""

    def words(self, kind, count):
        """Values as the definition and a message have them: texts and bytes."""
        if kind == "BOOLEAN":
            values = [self.random.random() < 0.5 for _ in range(count)]
            return [str(value) for value in values], bytes(values)
        if kind in FLOATS:
            values = [self.random.choice(FLOATS[kind]) for _ in range(count)]
            return [repr(value) for value in values], struct.pack(f">{count}{'f' if kind == 'F4' else 'd'}", *values)
        size = 1 if kind == "B" else int(kind[1])
        is_signed = kind[0] == "I"
        low, high = (-(1 << (8 * size - 1)), (1 << (8 * size - 1)) - 1) if is_signed else (0, (1 << 8 * size) - 1)
        values = [self.random.choice([0, 1, 5, 100, low, high]) for _ in range(count)]
        return [str(value) for value in values], b"".join(value.to_bytes(size, "big", signed=is_signed) for value in values)

    def item(self, depth):
        kind = self.random.choice(["L", "L", *CODES, "X"]) if depth < 3 else self.random.choice([*CODES, "X"])
        is_fixed = self.random.random() < 0.6
        name = self.name()
        if kind == "L":
            if is_fixed:
                members = [self.item(depth + 1) for _ in range(self.random.randint(0, 3))]
                return Item("L", name if self.random.random() < 0.6 else "", len(members), True, members)
            members = [self.item(depth + 1)] if self.random.random() < 0.9 else []
            return Item("L", name or "V", self.random.randint(1, 4), False, members)
        if not name:
            kind = "U1" if kind == "X" else kind
        count = self.random.choice([1, 1, 1, 2, 3]) if kind not in "AJX" else self.random.choice([1, 5, 12])
        item = Item(kind, name, count, is_fixed)
        if kind in ("A", "J", "X"):
            item.value = "'" + self.random.choice(["", "A", "LOT"])[:count] + "'"
        else:
            item.value = " ".join(self.words(kind, count if is_fixed else self.random.randint(1, count))[0])
        return item

    def encoded(self, item):
        """The bytes of an item with any value."""
        if item.kind == "L":
            members = item.members
            if not item.is_fixed:
                count = self.random.randint(0, item.count)
                members = [item.members[0] if item.members else Item("U1", "", 1, True) for _ in range(count)]
            return head(0, len(members)) + b"".join(self.encoded(member) for member in members)
        if item.kind == "X":
            return self.encoded(self.random.choice([Item("A", "", 9, False), Item("U4", "", 3, False), Item("F4", "", 1, True),
                                                    Item("L", "", 2, False), Item("BOOLEAN", "", 2, True)]))
        if item.kind in ("A", "J"):
            text = self.random.choice(TEXTS)[:item.count]
            data = (text.ljust(item.count) if item.is_fixed else text).encode("ascii")
        elif item.is_key:
            words = item.value.split()
            data = b"".join(int(word).to_bytes(4, "big") for word in words)
        else:
            data = self.words(item.kind, item.count if item.is_fixed else self.random.randint(0, item.count))[1]
        return head(CODES[item.kind], len(data)) + data

    def flat(self, items, lists=0):
        for item in items:
            yield item, lists
            yield from self.flat(item.members, lists + (item.kind == "L" and not item.is_fixed))

    def literal(self, item):
        if item.kind in ("A", "J", "X"):
            return "'" + self.random.choice(["", "A", "LOT 1", "PP-SELECT", "5"]) + "'"
        if item.kind == "L":
            return "1"
        words = self.words(item.kind, 1)[0]
        if item.kind == "BOOLEAN":
            return words[0].upper()
        if item.kind in FLOATS:
            return words[0]
        return self.random.choice([words[0], words[0] + ".0", "5", "0x5", "100", "1e2"])

    def address(self, items):
        item, lists = self.random.choice([pair for pair in self.flat(items) if pair[0].name])
        index = ";".join(str(self.random.randint(1, 3)) for _ in range(lists))
        return item, item.name + (f"[{index}]" if index else "")

    def condition(self, items, depth=0):
        if depth < 2 and self.random.random() < 0.4:
            word = self.random.choice(["and", "or"])
            return f"({self.condition(items, depth + 1)} {word} {self.condition(items, depth + 1)})"
        item, address = self.address(items)
        return f"({{{address}}} {self.random.choice(['==', '==', '!='])} {self.literal(item)})"

    def statements(self, items, depth=2):
        for word in ["if", *self.random.choice([[], ["else"], ["elif", "else"], ["elif"]])]:
            condition = "NONE" if word == "else" else self.condition(items, 1)
            start = f'    Element {depth} Statement Type="{word}" Condition="{condition}"'
            if depth < 3 and self.random.random() < 0.3:
                yield start
                yield from self.statements(items, depth + 1)
            else:
                yield start + f' "{self.random.choice(["Steps", "1", "", "a b"])}"'

    def transaction(self, name, message, items, has_condition):
        has_names = any(item.name for item, _ in self.flat(items))
        yield f"## [TR MESSAGE] {name}"
        yield f"  SECSMessage {message}"
        if has_condition and has_names:
            yield f"  Condition {self.condition(items)}"
        yield "  Report True"
        yield "  Direction 2"
        for item_name in self.random.sample(ITEM_NAMES, self.random.randint(0, 4) if has_names else 0):
            yield f"  TRItem {item_name}"
            yield "    Type STRING"
            yield f"    Value {self.address(items)[1]}"
            if self.random.random() < 0.5:
                yield "    ABSValue 62.5"
            if self.random.random() < 0.5:
                yield "    Element 1 Condition"
                yield from self.statements(items)
            yield "  EndTRItem"
        yield "EndTRMessage"


def message_items(maker):
    maker.names = maker.random.sample(ITEM_NAMES, len(ITEM_NAMES))
    if maker.random.random() < 0.1:
        return []
    members = [maker.item(1) for _ in range(maker.random.randint(1, 4))]
    return [Item("L", "", len(members), True, members)] if maker.random.random() < 0.7 else members[:1]


def make(project, recording, seed, messages=8):
    """Writes a project of an equipment and what it receives."""
    maker = Maker(seed)
    definitions, model, records = [], [], []
    names = maker.random.sample(MESSAGE_NAMES, messages)
    transactions = maker.random.sample(MESSAGE_NAMES, len(MESSAGE_NAMES))
    system = 0
    for number, name in enumerate(names):
        items = message_items(maker)
        stream, function = (2, 41) if number < 2 else (number, 2 * number + 1)
        if number < 2:  # two messages that their keys tell apart
            key = Item("U4", "KEYED", 1, True)
            key.is_key, key.value = True, str(number)
            items = [Item("L", "", len(items) + 1, True, [key, *items])]
        definitions.append("* A message with \\u000a, */ and <tags> & more")
        lines = [line for item in items for line in item.lines(1)]
        definitions += [f"{name}: S{stream} F{function} W H->E", *lines]
        definitions[-1] += "."
        for count in range(maker.random.randint(1, 3)):
            model += maker.transaction(transactions.pop(), name, items, count > 0)
        for _ in range(12):
            body = b"".join(maker.encoded(item) for item in items)
            if maker.random.random() < 0.15:
                body = body[:maker.random.randint(0, len(body))] + maker.random.randbytes(maker.random.randint(0, 2))
            system += 1
            message = struct.pack(">HBBHI", 1, stream | 0x80, function, 0, system) + body
            records.append("2026-03-21 08:00:01.000 RECV " + (len(message).to_bytes(4, "big") + message).hex(" ").upper())
    text = ["###[PROJECT INFORMATION]", "ProjectType=2", "## [EDIT SMD]", *definitions, "", "",
            "###[TRANSACTION MODEL] 1", *model, "", "", "", "###[SEQUENCE TABLE]", ""]
    project.write_text("\n".join(text), encoding="utf-16", newline="\r\n")
    recording.write_text("\n".join(records) + "\n", encoding="ascii")

"""What a run over many records would have left: records, products and a state folder whose message log has ten
messages of each record."""

import os
import string

from state_logs import STAMP, STAMP_SECONDS, log_beginning, log_line

MESSAGES = 10  # of each record
KINDS = 350  # of messages, in all
SENTENCES = ('"{text}" is no date', 'element "{text}" must follow "{number}"', 'no such theme keyword: "{text}"',
             "West_Bounding_Coordinate {number} is out of range", '"{text}" is not in the list of scales')


def make(root, records):
    """Gives the path of the definition. The drive T: is `root`."""
    for folder in ("in", "out", "bench.state"):
        os.mkdir(f"{root}/{folder}")
    make_file(f"{root}/mp")
    with open(f"{root}/bench.state/run.log", "wb") as run_log, \
            open(f"{root}/bench.state/messages.log", "wb") as message_log:
        run_log.write(log_beginning())
        message_log.write(b"tarnwick-run messages 1\n\n")
        for number in range(records):
            stem = f"survey of tides {number:06}"
            for path in (f"in/{stem}.met", f"out/{stem}.err", f"out/{stem}.html"):
                make_file(f"{root}/{path}")
            run_log.write(log_line(f"made\t1\t{stem}.met\t{STAMP}\tmp:0:0.{number % 1000:03}" + 2 * f"\t{STAMP}"))
            messages = "".join("\t" + message(number, place) for place in range(MESSAGES))
            message_log.write(log_line(f"messages\t1\t{stem}.met{messages}"))
    with open(f"{root}/bench.ini", "w", newline="", encoding="ascii") as file:
        file.write("MP EXECUTABLE=T:\\mp\r\nProcess MP=1\r\nProcess CNS=0\r\nInput Folder=T:\\in\r\n"
                   "Input File Extension=*.met\r\nConvert HyperLink To Relative Path=False\r\nLanguage=English\r\n"
                   "Error Extension=.err\r\nGRID_Error=T:\\out\r\nHtml Extension=.html\r\nGRID_Html=T:\\out\r\n")
    return f"{root}/bench.ini"


def make_file(path):
    os.close(os.open(path, os.O_CREAT | os.O_WRONLY))
    os.utime(path, (STAMP_SECONDS, STAMP_SECONDS))


def message(record, place):
    """As a field of the log: nearly each has a text of its own, and one of a few hundred kinds."""
    kind = (record * 7919 + place * 104729) % KINDS
    line = 1 + place * 13 + (record * 31 + place) % 13
    section = string.ascii_lowercase[kind // 5 % 26] + string.ascii_lowercase[kind // 130]
    sentence = SENTENCES[kind % 5].format(text=f"value {record * MESSAGES + place}", number=record * place % 181)
    return f"{line} Error (line {line * 3}): {sentence} in section {section}"

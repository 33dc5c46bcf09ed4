"""Words, numbers and limits that several parts of the test use."""


FORMATS = ("-man", "-markdown")
SECRET = "zqh"
EPOCH = "1000000000"  # 2001-09-09 in UTC
WIDTH = "1000"  # columns: the widest that mandoc accepts, so few lines wrap
STATUSES = (0, 1, 2, 3, 4, 6)  # the exit statuses of every tool
LONG = 40  # letters of a word: longer ones do not fit into a line of 80 columns everywhere
LEFT_OUT = object()  # stands for a field that a mutation removes

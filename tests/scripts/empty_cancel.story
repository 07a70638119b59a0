A cancelled search stores the directories finished, without the last one visited and those behind it.
== files ==
d/old/
d/up/deep/file text
d/up/deep/later/
== script ==
select ROOT/d
# A directory found yields twice: old, up and deep. The next yield lies inside deep.
at_yield 7 call Command28_Click
call Picture6_Click
show Command28
show ListView1
show Picture6
== output ==
Command28	caption	取消[查找空目录]
Command28	tooltip	
Command28	visible	0
Command28	enabled	1
rows	1	list_mode	1	visible	1
1	1	0	ROOT/d/old/	0
Picture6	tooltip	
Picture6	visible	1
Picture6	enabled	1
== file spasedir.txt ==
ROOT/d/old/

Taking a deletion back: the run in the recycle bin, one file, what stands in its place, the rest of the run.
== files ==
home/
d/a equal text
d/sub/b equal text
d/sub/c equal text
== trash ==
real
== script ==
select ROOT/d
call search_check_m_Click
call restore_deleted
mouse ListView1 double 1 4
mouse ListView1 double 2 4
answer yes
call delete_marked_recycle
call restore_deleted
show restore_runs.List1
show restore_runs.List2
show restore_runs.Label1
mouse restore_runs.List2 double 2 0
show restore_runs.List2
show ListView1
set restore_runs.List2 1 1
call restore_runs.Command1_Click
show ListView1
call restore_runs.Command2_Click
call restore_runs.Command4_Click
quit
== output ==
message	检查同内容文件完毕	已　检　查:3 个文件 \r\n相同文件有:2个,占用空间20 字节  用时: 0:0:...	ok	1000
message	提示	没有放入回收站的删除记录。	ok	1000
message	提示	将所选定的文件放入回收站吗?\r\n    Y 放入回收站\r\n    N 直接删除	yesno	1000
shell	recycle	ROOT/d/sub/b
shell	recycle	ROOT/d/sub/c
message	提示	放入回收站:2 个文件\r\n 释放空间: 20	ok	1000
rows	1
1	1	0	...    2 个, 20 字节
rows	2
1	0	0	在回收站    10    ROOT/d/sub/b
2	0	0	在回收站    10    ROOT/d/sub/c
restore_runs.Label1	caption	在回收站 2 个, 已在原处或已恢复 0 个, 不能恢复 0 个
restore_runs.Label1	tooltip	
restore_runs.Label1	visible	1
restore_runs.Label1	enabled	1
message	提示	已恢复:1 个	ok	1000
rows	2
1	0	0	在回收站    10    ROOT/d/sub/b
2	0	0	已恢复    10    ROOT/d/sub/c
rows	1	list_mode	0	visible	1
1	1	0	10	0	ROOT/d/a	0	ROOT/d/sub/c	0
message	提示	已恢复:1 个	ok	1000
rows	2	list_mode	0	visible	1
1	1	0	10	0	ROOT/d/a	0	ROOT/d/sub/c	0
2	2	0	10	0	ROOT/d/a	2147483665	ROOT/d/sub/b	0
message	提示	没有选中可以恢复的文件。	ok	1000

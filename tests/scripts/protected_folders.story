A protected folder: its files are compared and keep others, and take no mark and leave by no road.
== files ==
d/a equal text
p/a equal text
p/sub/b equal text
link -> p
== script ==
select ROOT/d
call Picture1_Click
select ROOT/p
call Picture1_Click
show 目录选择.list_selected_dir
set 目录选择.list_selected_dir 2 1
call 目录选择.Command34_Click
call search_check_m_Click
mouse ListView1 double 1 4
mouse ListView1 double 2 4
show ListView1
show StatusBar1
answer yes
call keep_longest
show ListView1
answer no
call delete_marked_recycle
show ListView1
quit
== output ==
rows	2
1	0	0	ROOT/d
2	0	0	ROOT/p
message	检查同内容文件完毕	已　检　查:3 个文件 \r\n相同文件有:2个,占用空间20 字节  用时: 0:0:...	ok	1000
rows	2	list_mode	0	visible	1
1	1	0	10	0	ROOT/d/a	0	ROOT/p/a	0
2	2	0	10	0	ROOT/d/a	2147483665	ROOT/p/sub/b	0
1	文件数:3
2	字节:30
3	相同文件:2
4	相同文件长度:20
5	受保护,不标记:1
6	0:...
7	搜索和比对
message	提示	保留路径最长的: 将标记 1 个文件, 10 字节	yesno	1000
rows	2	list_mode	0	visible	1
1	1	0	10	0	ROOT/d/a	255	ROOT/p/a	0
2	2	0	10	0	ROOT/d/a	2147483665	ROOT/p/sub/b	0
message	提示	将所选定的文件放入回收站吗?\r\n    Y 放入回收站\r\n    N 直接删除	yesno	1000
message	提示	已删除:1 个文件\r\n 释放空间: 10	ok	1000
rows	2	list_mode	0	visible	1
1	1	0	10	0		255	ROOT/p/a	0
2	2	0	10	0	ROOT/d/a	2147483665	ROOT/p/sub/b	0
== file 受保护的目录.txt ==
Corvane protected folders 1
 1 
ROOT/p/

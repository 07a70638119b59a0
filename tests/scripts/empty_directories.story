Empty directories: found, shown, marked and sent to the recycle bin; the stored list is not rewritten.
== files ==
d/full/file text
d/hidden_file/.keep
d/upper/lower/
d/old/
d/chain/middle/end/
d/linked/
d/linked/up -> d
== script ==
select ROOT/d
call search_dir
show ListView1
show Label3(5)
# A directory marked twice is marked no more.
mouse ListView1 double 1 2
mouse ListView1 double 2 2
mouse ListView1 double 2 2
call Picture8_Click
show ListView1
show StatusBar1
key ListView1 46
call disp_dir
show ListView1
call all_select
call Picture5_Click
== output ==
rows	3	list_mode	1	visible	1
1	1	0	ROOT/d/chain/middle/end/	0
2	2	0	ROOT/d/old/	0
3	3	0	ROOT/d/upper/lower/	0
Label3(5)	caption	删除选定的空目录
Label3(5)	tooltip	
Label3(5)	visible	1
Label3(5)	enabled	1
shell	recycle	ROOT/d/chain/middle/end/
message	提示	放入回收站:1 个空目录	ok	1000
rows	3	list_mode	1	visible	1
1	1	0		255
2	2	0	ROOT/d/old/	0
3	3	0	ROOT/d/upper/lower/	0
1	搜索出目录:3
2	
3	空目录:3
4	
5	已删除:1
6	0:0:...
7	删除空目录
message	提示	放入回收站:0 个空目录	ok	1000
rows	3	list_mode	1	visible	1
1	1	0	ROOT/d/chain/middle/end/	0
2	2	0	ROOT/d/old/	0
3	3	0	ROOT/d/upper/lower/	0
shell	recycle	ROOT/d/chain/middle/end/
shell	recycle	ROOT/d/old/
shell	recycle	ROOT/d/upper/lower/
message	提示	放入回收站:3 个空目录	ok	1000
== file spasedir.txt ==
ROOT/d/old/
ROOT/d/upper/lower/
ROOT/d/chain/middle/end/

Marking: double clicks keep one file of a pair, ranges go over gray rows, sorting wipes the marks of the first path.
== files ==
d/a1 equal text
d/a2 equal text
d/a3 equal text
d/b1 other
d/b2 other
== script ==
select ROOT/d
call search_check_m_Click
# Row 1 and 2: the star of a1. Row 3: b1 and b2.
mouse ListView1 double 3 3
mouse ListView1 double 3 4
show ListView1
# A gray cell takes no mark.
mouse ListView1 double 2 3
mouse ListView1 down 1 4
mouse ListView1 down 3 4 shift
show ListView1
# The file of the second path is gone: no mark any more on this row.
header ListView1 2
show last_sort_column
show ListView1
mouse ListView1 down 1 3 right
call mnu_enter_dir
call disp_same_file_attr
mouse ListView1 double 1 1
show samefile_disp2
== output ==
message	检查同内容文件完毕	已　检　查:5 个文件 \r\n相同文件有:3个,占用空间25 字节  用时: 0:0:...	ok	1000
rows	3	list_mode	0	visible	1
1	1	0	10	0	ROOT/d/a1	0	ROOT/d/a2	0
2	2	0	10	0	ROOT/d/a1	2147483665	ROOT/d/a3	0
3	3	0	5	0	ROOT/d/b1	0	ROOT/d/b2	255
rows	3	list_mode	0	visible	1
1	1	0	10	0	ROOT/d/a1	0	ROOT/d/a2	255
2	2	0	10	0	ROOT/d/a1	2147483665	ROOT/d/a3	255
3	3	0	5	0	ROOT/d/b1	0	ROOT/d/b2	0
last_sort_column	长度
rows	3	list_mode	0	visible	1
1	3	0	5	0	ROOT/d/b1	0	ROOT/d/b2	0
2	1	0	10	0	ROOT/d/a1	0	ROOT/d/a2	255
3	2	0	10	0	ROOT/d/a1	2147483665	ROOT/d/a3	255
shell	select	ROOT/d/b1
shell	properties	ROOT/d/b1
samefile_disp2	text	ROOT/d/b2    ...\t5
samefile_disp2	tooltip	
samefile_disp2	visible	1
samefile_disp2	enabled	1

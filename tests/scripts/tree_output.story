The tree's window: suffixes to pick from, days, bounds that give way, wrong settings, and a list that has shrunk.
== files ==
data/a.jpg 1
data/b.GIF 2
data/c.jpg 3
data/deep/d.txt 4
== script ==
select ROOT/data
call picture2_Click
call tree_select_m
# The box that was double-clicked takes the suffix of the row.
call tree_dir.Text7_DblClick
show tree_dir.ListView1
mouse tree_dir.ListView1 double 1 1
mouse tree_dir.ListView1 double 1 1
show tree_dir.Text7
# A day goes into the box that asked for it, and the other one follows.
set tree_dir.Text5 2026-03-04
set tree_dir.Text6 2026-03-05
call tree_dir.Text5_DblClick
set tree_dir.MonthView1 2026-04-01
call tree_dir.MonthView1_DateClick
show tree_dir.Text6
# A lower bound above the upper one takes it along; equal bounds are none.
set tree_dir.Check5 1
set tree_dir.Text4 5
set tree_dir.Text3 9
show tree_dir.Text4
set tree_dir.Text3 10
call tree_dir.Command1_Click
set tree_dir.Check5 0
set tree_dir.Check6 1
call tree_dir.Command1_Click
set tree_dir.Check6 0
set tree_dir.Text1 30
set tree_dir.Check1 1
call tree_dir.Command1_Click
show file_count
show tree_only_types
show tree_levels
set tree_dir.Option1(1) 1
call tree_dir.Command1_Click
call tree_dir.Picture1_Click
call tree_dir.Command3_Click
call tree_dir.Command2_Click
show tree_dir.ProgressBar1
== status ==
1
== output ==
rows	3	list_mode	0	visible	1
1	jpg	0	2	0
2	GIF	0	1	0
3	txt	0	1	0
tree_dir.Text7	text	jpg
tree_dir.Text7	tooltip	双击,打开选择表
tree_dir.Text7	visible	1
tree_dir.Text7	enabled	1
tree_dir.Text6	text	2026-04-01
tree_dir.Text6	tooltip	双击,打开日期选择表,或直接修改
tree_dir.Text6	visible	1
tree_dir.Text6	enabled	0
tree_dir.Text4	text	10
tree_dir.Text4	tooltip	
tree_dir.Text4	visible	1
tree_dir.Text4	enabled	1
message	提示	文件长度设置有误,左边长度10应小于右边长度10 ,请重新设置	ok	1000
message	提示	文件日期设置有误,左边2026-04-01应小于右边2026-04-01 ,请重新设置	ok	1000
message	提示	树状目录已写入 ROOT/program/tree_file_list.txt	ok	1000
shell	open	ROOT/program/tree_file_list.txt
file_count	4
tree_only_types	jpg
tree_levels	30
message	提示	树状目录已写入 ROOT/program/tree_file_list.xls	ok	1000
shell	open	ROOT/program/tree_file_list.xls
shell	open	ROOT/program/tree_file_list.xls
shell	help	aux50_Corvane帮助_Link.htm
tree_dir.ProgressBar1	value	4
tree_dir.ProgressBar1	tooltip	
tree_dir.ProgressBar1	visible	0
tree_dir.ProgressBar1	enabled	1
== line 36 of Tavrel环境.txt ==
 0 
== line 38 of Tavrel环境.txt ==
jpg
== line 40 of Tavrel环境.txt ==
 1 

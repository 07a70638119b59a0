The options window: what is excluded there holds for the next search, and the options stand in the settings.
== files ==
data/a.jpg 1
data/b.tmp 2
data/c.old 3
data/skip/d.jpg 4
data/kept/e.jpg 5
program/不参加搜索的目录.txt 0ROOT/data/skip
program/常用文件扩展名.txt .tmp 临时文件
== script ==
select ROOT/data
call select_m_Click
show Form_no_dire.List1
show Form_no_dire.List4
# A common type joins those that are not searched; a second one is typed, which saves the list.
mouse Form_no_dire.List4 click 1 1
call Form_no_dire.add_no_search
answer OLD
call Form_no_dire.add_new_no_search_filetype
show Form_no_dire.List2
# The directory is left out as soon as its row is checked and the lists are applied.
set Form_no_dire.List1 1 1
answer no
call Form_no_dire.Command4_Click
call picture2_Click
# The fourth option is stored at once, the sixth when the window closes.
set Form_no_dire.Check4 1
set Form_no_dire.Check6 1
show Form_no_dire.Check4
show same_suffix_only
show scan_archives
quit
== output ==
rows	1
1	0	0	...DATA/SKIP/
rows	1
1	0	0	.tmp 临时文件
input	输入框	输入新增的<不搜索>的文件类型,如: xls\r\n
rows	2
1	0	1	.tmp
2	0	1	.old
message	提示	搜索选项已变化，是否重新搜索	yesno	1000
Form_no_dire.Check4	caption	只查后缀相同的文件
Form_no_dire.Check4	value	1
Form_no_dire.Check4	tooltip	
Form_no_dire.Check4	visible	1
Form_no_dire.Check4	enabled	1
same_suffix_only	1
scan_archives	0
== file 文件清单.txt ==
ROOT/data/a.jpg
ROOT/data/kept/e.jpg
== file 不参加比较的文件类型.txt ==
1.tmp
1.old
== file 不参加搜索的目录.txt ==
1...DATA/SKIP/
== line 11 of Tavrel环境.txt ==
 1 
== line 55 of Tavrel环境.txt ==
 1 
== line 9 of Tavrel环境.txt ==
 0 

Lists leave the program: as a spreadsheet, as text with a depth and without types, and the pairs as they are stored.
== files ==
data/a.txt 12345
data/pictures/b.gif 1
data/pictures/c.jpg 1234567
data/pictures/2023/d.jpg 1234567
data/名称"q".txt 123
== script ==
select ROOT/data
call picture2_Click
call out_excel_form
show StatusBar1
show export_count
# Beside a list of types a depth folds what lies deeper; the text export keeps the directory.
call out_sele
show Frame6
set Text4 gif
set Text3 1
call Frame6_DblClick
show Frame6
show export_skip_types
show export_levels
call 文件清单_M
show export_count
# Types without a depth: the stored list as it stands.
set Text3 0
call 文件清单_M
call 相同文件XLS清单_M
call Picture3_Click
call 相同文件XLS清单_M
call 相同文件清单_m
call open_excel
# All that is left out.
set Text4 gif/txt/jpg
call Command33_Click
== output ==
shell	...	...ROOT/program/filelist.xls
1	
2	
3	
4	
5	
6	0:0:0
7	导出相同文件清单->Excel
export_count	5
Frame6	caption	清单导出选择
Frame6	tooltip	
Frame6	visible	1
Frame6	enabled	1
Frame6	caption	清单导出选择
Frame6	tooltip	
Frame6	visible	0
Frame6	enabled	1
export_skip_types	GIF
export_levels	1
shell	open	ROOT/program/filelist_txt_.txt
export_count	1
shell	open	ROOT/program/filelist_txt_.txt
message	提示	ROOT/program/相同文件.txt  不存在	ok	1000
message	检查同内容文件完毕	...	ok	1000
shell	open	ROOT/program/相同文件.xls
shell	open	ROOT/program/相同文件.txt
shell	open	ROOT/program/filelist.xls
message	提示	没有符合条件的文件,请重新搜索或重新选择导出参数	ok	1000
== file filelist.xls ==
名称	大小	创建日期
ROOT/data/a.txt	5 B	20...-...-...
ROOT/data/pictures/2023/d.jpg	7 B	20...-...-...
ROOT/data/pictures/b.gif	1 B	20...-...-...
ROOT/data/pictures/c.jpg	7 B	20...-...-...
ROOT/data/名称"q".txt	3 B	20...-...-...
空间总计	23 B
== file filelist_txt_.txt ==
ROOT/data/a.txt
ROOT/data/pictures/2023/d.jpg
ROOT/data/pictures/b.gif
ROOT/data/pictures/c.jpg
ROOT/data/名称"q".txt
== file 相同文件.xls ==
内容相同文件清单            
 1 
 7 
ROOT/data/pictures/2023/d.jpg
ROOT/data/pictures/c.jpg

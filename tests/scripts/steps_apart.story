The road in steps: the list is stored by the search and read back by a comparison that has used it up.
== files ==
d/one twin
d/two twin
== script ==
select ROOT/d
call 目录搜索_M
show file_count
show file_list_loaded
show RichTextBox2
call 查相同文件_M
show file_list_loaded
call Picture3_Click
show ListView1
call 显示相同文件_M
show result_file1(1)
show result_file2(1)
== output ==
file_count	2
file_list_loaded	-1
RichTextBox2	file	ROOT/program/文件清单.txt
RichTextBox2	tooltip	
RichTextBox2	visible	1
RichTextBox2	enabled	1
message	检查同内容文件完毕	已　检　查:2 个文件 \r\n相同文件有:1个,占用空间4 字节  用时: ...	ok	1000
file_list_loaded	0
message	检查同内容文件完毕	...	ok	1000
rows	1	list_mode	0	visible	1
1	1	0	4	0	ROOT/d/one	0	ROOT/d/two	0
result_file1(1)	ROOT/d/one
result_file2(1)	ROOT/d/two
== file 文件清单.txt ==
ROOT/d/one
ROOT/d/two

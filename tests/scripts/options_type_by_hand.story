A type is added by hand, twice: one row, checked, in small letters. Only files of that type are then searched.
== files ==
program/常用文件扩展名.txt .xls Excel
data/a.xls 1
data/b.XLS 2
data/c.doc 3
== script ==
select ROOT/data
call select_m_Click
answer XLS
call Form_no_dire.add_new_only_search
answer XLS
call Form_no_dire.add_new_only_search
show Form_no_dire.List3
# An empty answer ends the command, and so does 取消.
answer
call Form_no_dire.add_new_only_search
answer cancel
call Form_no_dire.add_new_only_search
show Form_no_dire.List3
answer yes
call Form_no_dire.Command4_Click
show only_type_text
# Without a change nothing is asked.
call Form_no_dire.Command4_Click
# A row that is taken off without being saved stands in the file all the same.
mouse Form_no_dire.List3 click 1 1
call Form_no_dire.only_search_move
show Form_no_dire.List3
== output ==
input	输入框	输入新增的<仅搜索>的文件类型,如: xls\r\n
input	输入框	输入新增的<仅搜索>的文件类型,如: xls\r\n
rows	1
1	0	1	.xls
input	输入框	输入新增的<仅搜索>的文件类型,如: xls\r\n
input	输入框	输入新增的<仅搜索>的文件类型,如: xls\r\n
rows	1
1	0	1	.xls
message	提示	搜索选项已变化，是否重新搜索	yesno	1000
only_type_text	.XLS 
rows	0
== file 仅搜索的文件类型.txt ==
1.xls
== file 文件清单.txt ==
ROOT/data/a.xls
ROOT/data/b.XLS
